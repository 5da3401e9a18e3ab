// The content of the main window: sidebar, toolbar, the chosen section's screen, sheets and the notice.
import QtQuick
import QtQuick.Layouts
import Brimlet

FocusScope {
    id: root

    required property AppCommands commands

    focus: true

    RowLayout {
        anchors.fill: parent
        spacing: 0

        Sidebar {
            Layout.fillHeight: true
            Layout.preferredWidth: Theme.sidebarWidth
        }
        Rectangle {
            Layout.fillHeight: true
            Layout.preferredWidth: Theme.hairline
            color: Theme.cardBorder
        }
        Item {
            id: detail

            Layout.fillHeight: true
            Layout.fillWidth: true

            ColumnLayout {
                anchors.fill: parent
                spacing: 0

                ScanToolbar {
                    Layout.fillWidth: true
                    commands: root.commands
                }
                SectionHost {
                    Layout.fillHeight: true
                    Layout.fillWidth: true
                }
            }
            ToastView {
                anchors.bottom: parent.bottom
                anchors.bottomMargin: Theme.spaceXl
                anchors.horizontalCenter: parent.horizontalCenter
                maximumWidth: detail.width - 2 * Theme.spaceXl
            }
        }
    }
    AccessOnboardingView {}
    ConfirmDeletionView {}
    UpdateDialog {}
}
