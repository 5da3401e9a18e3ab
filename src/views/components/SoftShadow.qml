pragma ComponentBehavior: Bound

// The soft shadow of what floats, as stacked rectangles: it costs nothing and needs no graphics card.
import QtQuick
import Brimlet

Item {
    id: shadow

    property int radius: Theme.radiusControl
    property int depth: 12

    anchors.fill: parent
    z: -1

    Repeater {
        model: shadow.depth

        Rectangle {
            required property int index

            anchors.fill: parent
            anchors.margins: -index * 2
            anchors.topMargin: -index
            anchors.bottomMargin: -index * 3
            color: Theme.shadow
            radius: shadow.radius + index * 2
        }
    }
}
