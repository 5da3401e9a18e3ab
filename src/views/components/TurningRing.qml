// A ring with an arc that goes round while something is at work. What stands in its middle is the caller's.
import QtQuick
import Brimlet

Item {
    id: ring

    implicitHeight: Theme.ringSize
    implicitWidth: Theme.ringSize

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
            running: Theme.animated && ring.visible
            to: 360
        }
    }
}
