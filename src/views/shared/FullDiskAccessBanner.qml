// Says what is missing without Full Disk Access, and the way to it.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Card {
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceL

        Medallion {
            Layout.alignment: Qt.AlignTop
            size: Theme.largeControlHeight
            symbol: "lock.shield.fill"
            symbolSize: Theme.iconLarge
            tint: Theme.review
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceXs

            AppText {
                Layout.fillWidth: true
                kind: AppText.Heading
                text: qsTr("Grant Full Disk Access")
                wrapMode: Text.Wrap
            }
            AppText {
                Layout.fillWidth: true
                color: Theme.textSecondary
                text: Words.accessBanner
                wrapMode: Text.Wrap
            }
            Flow {
                Layout.fillWidth: true
                Layout.topMargin: Theme.spaceS
                spacing: Theme.spaceS

                PrimaryButton {
                    text: qsTr("Open Privacy Settings")
                    onClicked: App.access.openFullDiskAccessSettings()
                }
                AppButton {
                    text: qsTr("I’ve Done It")
                    onClicked: App.access.probeFullDiskAccess()
                }
            }
        }
    }
}
