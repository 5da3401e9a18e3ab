pragma ComponentBehavior: Bound

// The report: how much went, where it went, and what stayed.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

StagePage {
    id: stage

    readonly property SmartCleanModel model: SmartCleanModel { state: App }
    property real appear: Theme.animated ? 0 : 1

    NumberAnimation on appear {
        duration: Theme.settle
        easing.type: Easing.OutBack
        running: Theme.animated
        to: 1
    }
    Medallion {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: Theme.spaceS
        opacity: Math.min(1, stage.appear)
        round: true
        scale: 0.6 + 0.4 * stage.appear
        size: Theme.medallion * 1.25
        symbol: "checkmark.circle.fill"
        symbolSize: Theme.medallion * 0.7
        tint: Theme.safe
    }
    AppText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        kind: AppText.Display
        text: stage.model.cleanedLine
        visible: text !== ""
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    ColumnLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceXs

        Repeater {
            model: stage.model.reportLines

            AppText {
                required property string modelData

                Layout.fillWidth: true
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
                text: modelData
                wrapMode: Text.Wrap
            }
        }
    }
    FittingRow {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.spaceM
        room: stage.width - 2 * Theme.spaceXl

        AppButton {
            Layout.fillWidth: true
            large: true
            text: qsTr("See What Else Is Using Space")
            onClicked: stage.model.showWhatElseUsesSpace()
        }
        PrimaryButton {
            Layout.fillWidth: true
            focus: true
            large: true
            text: qsTr("Done")
            onClicked: App.quickClean.smartPhase = "idle"
        }
    }
}
