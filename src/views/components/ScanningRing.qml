// A turning ring around what a running search has found so far, and where it is.
import QtQuick
import QtQuick.Layouts
import Brimlet

ColumnLayout {
    id: ring

    required property string progressText
    required property string detail
    property alias spin: turning.running

    spacing: Theme.spaceL

    Item {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredHeight: Theme.ringSize
        Layout.preferredWidth: Theme.ringSize

        RingArc {
            anchors.fill: parent
            color: Theme.track
            endColor: Theme.track
            thickness: Theme.ringThickness
        }
        RingArc {
            id: moving

            anchors.fill: parent
            color: Theme.accent
            endColor: Theme.secondAccent
            span: 0.3
            thickness: Theme.ringThickness

            RotationAnimator on rotation {
                id: turning

                duration: Theme.turn
                from: 0
                loops: Animation.Infinite
                running: Theme.animated && ring.visible
                to: 360
            }
        }
        AppText {
            anchors.centerIn: parent
            figures: true
            horizontalAlignment: Text.AlignHCenter
            kind: AppText.Heading
            text: ring.progressText
            width: parent.width - 4 * Theme.ringThickness
            wrapMode: Text.Wrap
            Accessible.role: Accessible.ProgressBar
        }
    }
    AppText {
        Layout.fillWidth: true
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignHCenter
        kind: AppText.Caption
        text: ring.detail === "" ? " " : ring.detail
    }
}
