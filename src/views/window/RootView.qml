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
            Layout.preferredWidth: Math.max(Theme.sidebarLeast, Math.min(Theme.sidebarWidth, root.width * 0.3))
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
    FocusInSight {
        readonly property int textSize: Theme.bodySize

        anchors.fill: parent
        margin: Theme.spaceXl

        onTextSizeChanged: lookAgain()
    }
    WindowTips {
        anchors.fill: parent
    }
    // What is said to assistive tools stands here for a moment, as an alert that nobody sees.
    Item {
        id: voice

        height: Theme.hairline
        width: Theme.hairline

        Accessible.ignored: Assistive.words === ""
        Accessible.name: Assistive.words
        Accessible.role: Accessible.AlertMessage

        Connections {
            function onWordsChanged() {
                if (Assistive.words !== "")
                    Assistive.show(voice);
            }

            target: Assistive
        }
    }
    AccessOnboardingView {}
    ConfirmDeletionView {}
    FinishingView {}
    UpdateDialog {}
}
