// The mark around the control that the keyboard acts on.
import QtQuick
import Brimlet

Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -Theme.focusWidth
    border.color: Theme.accent
    border.width: Theme.focusWidth
    color: "transparent"
    radius: Theme.radiusControl + Theme.focusWidth
    visible: shown
}
