// Stands side by side what fits into `room`, and else below each other.
import QtQuick
import QtQuick.Layouts
import Brimlet

GridLayout {
    id: line

    required property real room

    readonly property real oneLine: Array.from(visibleChildren).reduce(
        (sum, one) => sum + one.implicitWidth + columnSpacing, -columnSpacing)
    readonly property bool stacked: oneLine > room

    columnSpacing: Theme.spaceM
    columns: stacked ? 1 : Math.max(1, visibleChildren.length)
    rowSpacing: Theme.spaceS
}
