// A screen that scrolls: content in one column, centred on wide windows.
import QtQuick
import QtQuick.Layouts
import Brimlet

ScrollArea {
    id: page

    default property alias content: column.data

    contentHeight: column.implicitHeight + 2 * Theme.spaceXl

    ColumnLayout {
        id: column

        spacing: Theme.spaceL
        width: Math.min(page.width - 2 * Theme.spaceXl, Theme.pageMaximumWidth)
        x: (page.width - width) / 2
        y: Theme.spaceXl
    }
}
