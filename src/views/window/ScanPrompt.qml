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
    ColumnLayout {
        anchors.centerIn: parent
        spacing: Theme.spaceXl
        visible: App.isScanning
        width: Math.min(parent.width - 2 * Theme.spaceXl, Theme.textMaximumWidth)

        ScanningRing {
            Layout.fillWidth: true
            detail: App.progressPath
            progressText: qsTr("%1 files").arg(Formats.count(App.progressFiles)) + "\n"
                          + Formats.bytes(App.progressBytes)
        }
        AppButton {
            Layout.alignment: Qt.AlignHCenter
            large: true
            text: qsTr("Stop")
            onClicked: App.cancelScan()
        }
    }
    ColumnLayout {
        anchors.centerIn: parent
        spacing: Theme.spaceM
        visible: !App.isScanning
        width: Math.min(parent.width - 2 * Theme.spaceXl, Theme.textMaximumWidth)

        Rectangle {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: Theme.spaceS
            Layout.preferredHeight: Theme.medallion
            Layout.preferredWidth: Theme.medallion
            color: Theme.withAlpha(Theme.accent, Theme.tint)
            radius: width / 2

            Icon {
                anchors.centerIn: parent
                color: Theme.accent
                size: Theme.iconHuge
                symbol: "internaldrive.fill"
            }
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
        GridLayout {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.spaceM
            columnSpacing: Theme.spaceM
            columns: disk.implicitWidth + home.implicitWidth + columnSpacing > prompt.width - 2 * Theme.spaceXl ? 1 : 2
            rowSpacing: Theme.spaceS

            PrimaryButton {
                id: disk

                large: true
                text: qsTr("Scan Entire Disk")
                onClicked: App.scanWholeDisk()
            }
            AppButton {
                id: home

                large: true
                text: qsTr("Home Folder Only")
                onClicked: App.scanHome()
            }
        }
    }
}
