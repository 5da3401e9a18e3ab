// Asks before a saved file takes the place of another.
import QtQuick
import QtQuick.Layouts
import Brimlet

Sheet {
    id: dialog

    shown: WindowPanels.asksToReplace
    title: qsTr("“%1” already exists. Do you want to replace it?").arg(WindowPanels.nameToReplace)

    onDefaultWanted: WindowPanels.chooseAnotherName()
    onDismissed: WindowPanels.chooseAnotherName()

    AppText {
        Layout.fillWidth: true
        kind: AppText.Heading
        text: dialog.title
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    AppText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        text: qsTr("What it holds now will be lost.")
        wrapMode: Text.Wrap
    }
    buttons: [
        AppButton {
            focus: true
            text: qsTr("Cancel")
            onClicked: WindowPanels.chooseAnotherName()
        },
        DestructiveButton {
            text: qsTr("Replace")
            onClicked: WindowPanels.replace()
        }
    ]
}
