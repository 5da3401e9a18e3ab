// Says what is missing without Full Disk Access, and the way to it.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Card {
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceL

        Rectangle {
            Layout.alignment: Qt.AlignTop
            Layout.preferredHeight: Theme.largeControlHeight
            Layout.preferredWidth: Theme.largeControlHeight
            color: Theme.withAlpha(Theme.review, Theme.tint)
            radius: Theme.radiusControl

            Icon {
                anchors.centerIn: parent
                color: Theme.review
                size: Theme.iconLarge
                symbol: "lock.shield.fill"
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceXs

            AppText {
                Layout.fillWidth: true
                kind: AppText.Heading
                text: qsTr("Grant Full Disk Access")
            }
            AppText {
                Layout.fillWidth: true
                color: Theme.textSecondary
                text: qsTr("Without it, macOS hides folders like Mail, Safari and app containers from Brimlet, so sizes come out incomplete. Brimlet never sends anything off your Mac.")
                wrapMode: Text.Wrap
            }
            Flow {
                Layout.fillWidth: true
                Layout.topMargin: Theme.spaceS
                spacing: Theme.spaceS

                PrimaryButton {
                    text: qsTr("Open Privacy Settings")
                    onClicked: App.openFullDiskAccessSettings()
                }
                AppButton {
                    text: qsTr("I’ve Done It")
                    onClicked: App.probeFullDiskAccess()
                }
            }
        }
    }
}
