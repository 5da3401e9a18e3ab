// A screen that scrolls: content in one column, centred on wide windows.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

Flickable {
    id: page

    default property alias content: column.data

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: column.implicitHeight + 2 * Theme.spaceXl
    contentWidth: width

    T.ScrollBar.vertical: AppScrollBar {}

    ColumnLayout {
        id: column

        spacing: Theme.spaceL
        width: Math.min(page.width - 2 * Theme.spaceXl, Theme.pageMaximumWidth)
        x: (page.width - width) / 2
        y: Theme.spaceXl
    }
}
