// One stage of Quick Clean: its content in the middle of the page, scrolled where the window is too low for it.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

Flickable {
    id: page

    default property alias content: column.data

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: Math.max(height, column.implicitHeight + 2 * Theme.spaceXl)
    contentWidth: width

    T.ScrollBar.vertical: AppScrollBar {}

    ColumnLayout {
        id: column

        anchors.centerIn: parent
        spacing: Theme.spaceL
        width: Math.min(page.width - 2 * Theme.spaceXl, Theme.stageMaximumWidth)
    }
}
