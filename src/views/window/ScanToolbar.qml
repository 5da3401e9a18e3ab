// What the scan covers, how far it is, and the buttons that start and stop it.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: toolbar

    required property AppCommands commands

    implicitHeight: Theme.toolbarHeight

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceXl
        anchors.rightMargin: Theme.spaceL
        spacing: Theme.spaceS

        AppButton {
            id: targetButton

            Layout.maximumWidth: implicitWidth
            Layout.fillWidth: true
            menuIndicator: true
            text: qsTr("Scan: %1").arg(App.scan.scanTargetLabel)

            onClicked: targetMenu.toggle()

            AppMenu {
                id: targetMenu

                x: Theme.mirrored ? targetButton.width - width : 0
                y: targetButton.height + Theme.spaceXs

                AppMenuItem {
                    text: qsTr("Entire Disk")
                    onTriggered: App.scan.scanWholeDisk()
                }
                AppMenuItem {
                    text: qsTr("Home Folder")
                    onTriggered: App.scan.scanHome()
                }
                AppMenuItem {
                    text: qsTr("Choose Folder…")
                    onTriggered: App.scan.chooseFolderToScan()
                }
            }
        }
        AppButton {
            symbol: "xmark"
            text: qsTr("Stop")
            visible: App.scan.isScanning
            onClicked: App.scan.cancelScan()
        }
        AppButton {
            symbol: "arrow.clockwise"
            text: App.scan.hasScan ? qsTr("Rescan") : qsTr("Scan")
            visible: !App.scan.isScanning
            onClicked: App.scan.rescan()
        }
        AppText {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.spaceS
            Layout.preferredWidth: 0
            color: Theme.textSecondary
            figures: true
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: Theme.smallCaptionSize
            text: App.scan.isScanning ? qsTr("%1 files · %2").arg(Formats.count(App.scan.progressFiles))
                                       .arg(Formats.bytes(App.scan.progressBytes)) : ""
        }
        IconButton {
            id: menuButton

            symbol: "line.3.horizontal"
            text: qsTr("Menu")
            onClicked: mainMenu.toggle()

            Shortcut {
                sequence: "F10"
                onActivated: mainMenu.toggle()
            }

            MainMenu {
                id: mainMenu

                commands: toolbar.commands
                x: Theme.mirrored ? 0 : menuButton.width - width
                y: menuButton.height + Theme.spaceXs
            }
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        color: Theme.cardBorder
        height: Theme.hairline
        width: parent.width
    }
}
