// A screen whose table takes the room that its other parts leave. Where too little would be left, the screen
// scrolls; the table gives its least height as `Layout.minimumHeight`.
import QtQuick
import QtQuick.Layouts
import Brimlet

ScrollArea {
    id: page

    default property alias content: column.data
    property alias spacing: column.spacing
    property real topGap: Theme.spaceXl
    property real sideGap: Theme.spaceXl

    contentHeight: Math.max(height, topGap + column.implicitHeight)

    ColumnLayout {
        id: column

        height: page.contentHeight - page.topGap
        spacing: Theme.spaceL
        width: page.width - 2 * page.sideGap
        x: page.sideGap
        y: page.topGap
    }
}
