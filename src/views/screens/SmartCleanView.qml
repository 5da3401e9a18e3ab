pragma ComponentBehavior: Bound

// Quick Clean: one button from a full disk to a clean one, a stage at a time.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    readonly property var stages: ({
        "idle": idle,
        "scanning": scanning,
        "review": review,
        "cleaning": cleaning,
        "done": done
    })

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
        Loader {
            id: loader

            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true
            sourceComponent: view.stages[App.smartPhase]

            onLoaded: {
                if (Theme.animated)
                    entering.restart();
            }

            NumberAnimation {
                id: entering

                duration: Theme.gentle
                easing.type: Easing.OutCubic
                from: 0
                property: "opacity"
                target: loader
                to: 1
            }
        }
    }
    Component {
        id: idle

        IdleStage {
            focus: true
            model: clean
        }
    }
    Component {
        id: scanning

        WorkingStage {
            focus: true
            subtitle: qsTr("Caches, logs, Trash, Xcode leftovers, Mail attachments…")
            symbol: "magnifyingglass"
            title: qsTr("Looking for files you don’t need…")
        }
    }
    Component {
        id: review

        ReviewStage {
            focus: true
            model: clean
        }
    }
    Component {
        id: cleaning

        WorkingStage {
            focus: true
            subtitle: qsTr("Only the safe items you selected are removed.")
            title: qsTr("Cleaning…")
        }
    }
    Component {
        id: done

        DoneStage {
            focus: true
            model: clean
        }
    }
}
