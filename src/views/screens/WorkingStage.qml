// A calm ring while Brimlet looks or cleans.
import QtQuick
import QtQuick.Layouts
import Brimlet

StagePage {
    id: stage

    required property string title
    required property string subtitle
    property string symbol: "sparkles"

    Item {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: Theme.spaceL
        implicitHeight: Theme.ringSize
        implicitWidth: Theme.ringSize

        Rectangle {
            anchors.fill: parent
            color: Theme.card
            radius: width / 2
        }
        RingArc {
            anchors.fill: parent
            color: Theme.track
            endColor: Theme.track
            thickness: Theme.ringThickness
        }
        RingArc {
            anchors.fill: parent
            color: Theme.accent
            endColor: Theme.secondAccent
            span: 0.3
            thickness: Theme.ringThickness

            RotationAnimator on rotation {
                duration: Theme.turn
                from: 0
                loops: Animation.Infinite
                running: Theme.animated && stage.visible
                to: 360
            }
        }
        Icon {
            anchors.centerIn: parent
            color: Theme.accent
            size: Theme.iconHuge
            symbol: stage.symbol

            SequentialAnimation on opacity {
                loops: Animation.Infinite
                running: Theme.animated && stage.visible

                NumberAnimation { duration: Theme.turn; easing.type: Easing.InOutSine; from: 1; to: Theme.dimmed }
                NumberAnimation { duration: Theme.turn; easing.type: Easing.InOutSine; from: Theme.dimmed; to: 1 }
            }
        }
    }
    AppText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        kind: AppText.Title
        text: stage.title
        wrapMode: Text.Wrap
        Accessible.role: Accessible.ProgressBar
    }
    AppText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
        text: stage.subtitle
        wrapMode: Text.Wrap
    }
}
