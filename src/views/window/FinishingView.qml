// Says why the window is still there after it was closed: what was begun on the disk is brought to its end.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

Sheet {
    id: sheet

    closePolicy: T.Popup.NoAutoClose
    shown: App.isFinishing
    title: qsTr("Finishing…")

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceL

        Icon {
            Layout.alignment: Qt.AlignTop
            color: Theme.accentText
            size: Theme.iconLarge
            symbol: "clock.arrow.circlepath"
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceXs

            AppText {
                Layout.fillWidth: true
                kind: AppText.Title
                text: sheet.title
                Accessible.role: Accessible.Heading
            }
            AppText {
                Layout.fillWidth: true
                color: Theme.textSecondary
                text: qsTr("The item at hand is brought to its end, then Brimlet quits. Nothing else is touched.")
                wrapMode: Text.Wrap
            }
        }
    }
}
