// Quick Clean: one button from a full disk to a clean one, a stage at a time.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    SmartCleanModel {
        id: clean

        state: App
    }
    AmbientBackground {
        anchors.fill: parent
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        StepIndicator {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: Theme.spaceL
            Layout.topMargin: Theme.spaceXl
            phase: clean.steps
        }
        FocusScope {
            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true

            StageLoader {
                phase: "idle"
                sourceComponent: IdleStage {}
            }
            StageLoader {
                phase: "scanning"
                sourceComponent: WorkingStage {
                    focus: true
                    subtitle: qsTr("Caches, logs, Trash, Xcode leftovers, Mail attachments…")
                    symbol: "magnifyingglass"
                    title: qsTr("Looking for files you don’t need…")
                }
            }
            StageLoader {
                phase: "review"
                sourceComponent: ReviewStage {
                    focus: true
                }
            }
            StageLoader {
                phase: "cleaning"
                sourceComponent: WorkingStage {
                    focus: true
                    subtitle: qsTr("Only the safe items you selected are removed.")
                    title: qsTr("Cleaning…")
                }
            }
            StageLoader {
                phase: "done"
                sourceComponent: DoneStage {}
            }
        }
    }
}
