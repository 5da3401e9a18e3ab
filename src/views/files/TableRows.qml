// The rows of a table that are in sight, and what mouse, wheel and keys do with them.
pragma ComponentBehavior: Bound

import QtQuick
import Brimlet

FocusScope {
    id: view

    required property NodeTableModel table
    required property var widths ///< by cell
    property bool showsFolder: false

    readonly property real offset: visibleRows.offset
    readonly property real contentHeight: visibleRows.contentHeight
    property int hoveredRow: -1
    property string typed

    signal activated(int row)
    signal menuWanted(real x, real y)
    signal previewWanted(var event)
    signal removalWanted

    function scrollTo(offset: real) {
        visibleRows.offset = offset;
    }
    function goTo(row: int, extend: bool) {
        table.goTo(row, extend);
        visibleRows.show(table.currentRow);
    }

    RowWindow {
        id: visibleRows

        height: Math.ceil(view.height)
        rowHeight: view.showsFolder ? Theme.tallRowHeight : Theme.rowHeight
        source: view.table
    }
    Repeater {
        model: visibleRows

        NodeRow {
            current: view.activeFocus && row === view.table.currentRow
            height: visibleRows.rowHeight
            hovered: row === view.hoveredRow
            showsFolder: view.showsFolder
            widths: view.widths
            width: view.width
            y: position
        }
    }
    // Around the rows, not over them: a row's own handlers show what its cells have to say.
    HoverHandler {
        id: over

        onHoveredChanged: {
            if (!hovered)
                view.hoveredRow = -1;
        }
        onPointChanged: {
            if (hovered)
                view.hoveredRow = visibleRows.rowAt(point.position.y);
        }
    }
    MouseArea {
        id: mouse

        property int pressedRow: -1

        acceptedButtons: Qt.LeftButton | Qt.RightButton
        anchors.fill: parent

        onPressed: event => {
            view.forceActiveFocus(Qt.MouseFocusReason);
            pressedRow = visibleRows.rowAt(event.y);
            if (pressedRow < 0) {
                view.table.clearSelection();
            } else if (event.button === Qt.RightButton) {
                if (!view.table.isSelected(pressedRow))
                    view.table.click(pressedRow, 0);
                view.menuWanted(event.x, event.y);
            } else {
                view.table.click(pressedRow, event.modifiers);
            }
        }
        onPositionChanged: event => {
            const row = visibleRows.rowAt(event.y);
            if (!(pressedButtons & Qt.LeftButton) || pressedRow < 0)
                return;
            // Beyond an end the list scrolls along.
            const reached = event.y < 0 ? visibleRows.rowAt(0) - 1 : event.y > height ? visibleRows.rowAt(height - 1) + 1 : row;
            if (reached >= 0 && reached !== pressedRow && reached !== view.table.currentRow)
                view.goTo(reached, true);
        }
        onDoubleClicked: event => {
            if (event.button === Qt.LeftButton && pressedRow >= 0)
                view.activated(view.table.firstSelectedRow());
        }
        onWheel: event => {
            view.scrollTo(visibleRows.offset - (event.pixelDelta.y !== 0 ? event.pixelDelta.y : event.angleDelta.y));
            view.hoveredRow = visibleRows.rowAt(event.y);
        }
    }
    Timer {
        id: typing

        interval: Theme.typeAheadPause
        onTriggered: view.typed = ""
    }

    Keys.onPressed: event => {
        const extend = (event.modifiers & Qt.ShiftModifier) !== 0;
        const control = (event.modifiers & (Qt.ControlModifier | Qt.MetaModifier)) !== 0;
        const page = Math.max(1, Math.floor(height / visibleRows.rowHeight) - 1);
        const current = table.currentRow;
        event.accepted = true;
        if (event.key === Qt.Key_Down)
            goTo(current + 1, extend);
        else if (event.key === Qt.Key_Up)
            goTo(current < 0 ? 0 : current - 1, extend);
        else if (event.key === Qt.Key_PageDown)
            goTo(current + page, extend);
        else if (event.key === Qt.Key_PageUp)
            goTo(current - page, extend);
        else if (event.key === Qt.Key_Home)
            goTo(0, extend);
        else if (event.key === Qt.Key_End)
            goTo(table.count - 1, extend);
        else if (event.key === Qt.Key_A && control)
            table.selectAll();
        else if (event.key === Qt.Key_Escape && table.selectedCount > 0)
            table.clearSelection();
        else if (event.key === Qt.Key_Space && typed === "")
            previewWanted(event);
        else if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter) && table.selectedCount > 0)
            activated(table.firstSelectedRow());
        else if (event.key === Qt.Key_Delete && table.selectedCount > 0)
            removalWanted();
        else if (event.key === Qt.Key_Menu)
            menuWanted(Theme.spaceXxl, Math.max(0, current) * visibleRows.rowHeight + visibleRows.rowHeight / 2 - visibleRows.offset);
        else if (!control && event.text.length === 1 && event.text >= " ")
            typeAhead(event.text);
        else
            event.accepted = false;
    }

    function typeAhead(letter: string) {
        typed += letter;
        typing.restart();
        const row = table.rowBeginningWith(typed);
        if (row >= 0)
            goTo(row, false);
    }
}
