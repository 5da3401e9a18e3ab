// A thin bar with round ends, filled to a fraction.
import QtQuick
import Brimlet

Rectangle {
    id: bar

    property real fraction: 0
    property alias fillColor: fill.color
    property bool animated: true ///< off where the bar takes turns at showing different things

    color: Theme.track
    implicitHeight: Theme.barThickness
    implicitWidth: Theme.spaceXxl * 2
    radius: height / 2

    Accessible.ignored: true

    Rectangle {
        id: fill

        anchors.left: parent.left
        color: Theme.accent
        height: bar.height
        radius: bar.radius
        visible: bar.fraction > 0
        width: Math.max(bar.height, bar.width * Math.min(1, bar.fraction))

        Behavior on width { enabled: bar.animated; NumberAnimation { duration: Theme.gentle; easing.type: Easing.OutCubic } }
        Behavior on color { enabled: bar.animated; ColorAnimation { duration: Theme.gentle } }
    }
}
