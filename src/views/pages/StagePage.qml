// Content in the middle of the page, scrolled where the window is too low for it.
import QtQuick
import QtQuick.Layouts
import Brimlet

ScrollArea {
    id: page

    default property alias content: column.data
    property alias spacing: column.spacing
    property int maximumWidth: Theme.stageMaximumWidth

    contentHeight: Math.max(height, column.implicitHeight + 2 * Theme.spaceXl)

    ColumnLayout {
        id: column

        anchors.centerIn: parent
        spacing: Theme.spaceL
        width: Math.min(page.width - 2 * Theme.spaceXl, page.maximumWidth)
    }
}
