// A calm ring while Brimlet looks or cleans.
import QtQuick
import QtQuick.Layouts
import Brimlet

StagePage {
    id: stage

    required property string title
    required property string subtitle
    property string symbol: "sparkles"

    TurningRing {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: Theme.spaceL

        Rectangle {
            anchors.fill: parent
            color: Theme.card
            radius: width / 2
            z: -1
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
