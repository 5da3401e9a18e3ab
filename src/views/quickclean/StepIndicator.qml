pragma ComponentBehavior: Bound

// Where the user stands on the way from the scan to the clean disk.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: indicator

    required property var phase ///< of each step: "ahead", "present" or "finished"
    required property real room ///< where it is too little, only the present step tells its name

    readonly property var labels: [qsTr("Scan"), qsTr("Review"), qsTr("Clean")]

    spacing: Theme.spaceM

    Accessible.name: qsTr("Steps")
    Accessible.role: Accessible.Grouping

    Repeater {
        model: indicator.labels

        RowLayout {
            id: step

            required property int index
            required property string modelData

            readonly property string stepState: indicator.phase[index] ?? "ahead"
            readonly property bool ahead: stepState === "ahead"
            readonly property bool finished: stepState === "finished"

            spacing: Theme.spaceS

            Accessible.name: modelData
            Accessible.description: finished ? qsTr("finished") : ahead ? qsTr("to come") : qsTr("now")
            Accessible.role: Accessible.StaticText

            Rectangle {
                Layout.preferredHeight: Theme.hairline * 2
                Layout.preferredWidth: Theme.spaceXxl
                Layout.rightMargin: Theme.spaceXs
                color: step.ahead ? Theme.track : Theme.accent
                radius: height / 2
                visible: step.index > 0

                Behavior on color { ColorAnimation { duration: Theme.gentle } }
            }
            Rectangle {
                Layout.preferredHeight: Theme.iconLarge
                Layout.preferredWidth: Theme.iconLarge
                color: step.finished ? Theme.safe : step.ahead ? Theme.track : Theme.accent
                radius: height / 2

                Behavior on color { ColorAnimation { duration: Theme.gentle } }

                Icon {
                    anchors.centerIn: parent
                    color: Theme.textOnAccent
                    size: Theme.iconSmall
                    symbol: "checkmark"
                    visible: step.finished
                }
                AppText {
                    anchors.centerIn: parent
                    color: step.ahead ? Theme.textSecondary : Theme.textOnAccent
                    figures: true
                    kind: AppText.Strong
                    text: step.index + 1
                    visible: !step.finished
                    Accessible.ignored: true
                }
            }
            AppText {
                color: step.ahead ? Theme.textSecondary : Theme.text
                kind: AppText.Strong
                text: step.modelData
                visible: indicator.room >= Theme.stepsWidth || step.stepState === "present"
                Accessible.ignored: true
            }
        }
    }
}
