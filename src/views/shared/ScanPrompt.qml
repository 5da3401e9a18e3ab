// Stands in for a screen that needs a scan: invites to one, or shows how far it is.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: prompt

    required property string title
    required property string message

    AmbientBackground {
        anchors.fill: parent
    }
    StagePage {
        anchors.fill: parent
        maximumWidth: Theme.textMaximumWidth
        spacing: Theme.spaceXl
        visible: App.scan.isScanning

        ScanningRing {
            Layout.fillWidth: true
            detail: App.scan.progressPath
            progressText: qsTr("%1 files").arg(Formats.count(App.scan.progressFiles)) + "\n"
                          + Formats.bytes(App.scan.progressBytes)
        }
        AppButton {
            Layout.alignment: Qt.AlignHCenter
            large: true
            text: qsTr("Stop")
            onClicked: App.scan.cancelScan()
        }
    }
    StagePage {
        anchors.fill: parent
        maximumWidth: Theme.textMaximumWidth
        spacing: Theme.spaceM
        visible: !App.scan.isScanning

        Medallion {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: Theme.spaceS
            round: true
            size: Theme.medallion
            symbol: "internaldrive.fill"
            symbolSize: Theme.iconHuge
        }
        AppText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            kind: AppText.Title
            text: prompt.title
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            text: prompt.message
            wrapMode: Text.Wrap
        }
        FittingRow {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.spaceM
            room: prompt.width - 2 * Theme.spaceXl

            PrimaryButton {
                Layout.fillWidth: true
                large: true
                text: qsTr("Scan Entire Disk")
                onClicked: App.scan.scanWholeDisk()
            }
            AppButton {
                Layout.fillWidth: true
                large: true
                text: qsTr("Home Folder Only")
                onClicked: App.scan.scanHome()
            }
        }
    }
}
