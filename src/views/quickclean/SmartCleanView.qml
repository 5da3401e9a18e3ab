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
            room: view.width - 2 * Theme.spaceXl
        }
        FocusScope {
            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true

            StageLoader {
                announcement: qsTr("Free up space safely")
                phase: "idle"
                sourceComponent: IdleStage {}
            }
            StageLoader {
                announcement: qsTr("Looking for files you don’t need…")
                phase: "scanning"
                sourceComponent: WorkingStage {
                    focus: true
                    subtitle: Words.cleaningCovers
                    symbol: "magnifyingglass"
                    title: qsTr("Looking for files you don’t need…")
                }
            }
            StageLoader {
                announcement: qsTr("%1 ready to clean").arg(Formats.bytes(clean.selectedSize))
                phase: "review"
                sourceComponent: ReviewStage {
                    focus: true
                }
            }
            StageLoader {
                announcement: qsTr("Cleaning…")
                phase: "cleaning"
                sourceComponent: WorkingStage {
                    focus: true
                    subtitle: qsTr("Only the safe items you selected are removed.")
                    title: qsTr("Cleaning…")
                }
            }
            StageLoader {
                announcement: clean.cleanedLine
                phase: "done"
                sourceComponent: DoneStage {}
            }
        }
    }
}
