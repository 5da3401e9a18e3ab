// The small dialog of the update check.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Sheet {
    id: dialog

    shown: Updates.visible
    title: Updates.heading

    onDismissed: Updates.close()

    AppText {
        Layout.fillWidth: true
        kind: AppText.Heading
        text: Updates.heading
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    AppText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        text: Updates.message
        visible: text !== ""
        wrapMode: Text.Wrap
    }
    buttons: [
        AppButton {
            focus: !Updates.hasPage
            text: Updates.hasPage ? qsTr("Later") : qsTr("Close")
            onClicked: Updates.close()
        },
        PrimaryButton {
            focus: Updates.hasPage
            text: qsTr("Get the Update")
            visible: Updates.hasPage
            onClicked: Updates.openPage()
        }
    ]
}
