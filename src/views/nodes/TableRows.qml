// The rows of a table that are in sight, and what mouse, wheel and keys do with them.
pragma ComponentBehavior: Bound

import QtQuick
import Brimlet

FocusScope {
    id: view

    required property NodeTableModel table
    required property var widths ///< by cell
    property bool showsFolder: false

    readonly property int currentRow: table.currentRow
    readonly property real offset: visibleRows.offset
    readonly property real contentHeight: visibleRows.contentHeight
    property int hoveredRow: -1
    property string hoveredCell
    property rect tipPlace ///< of what `tip` is about
    readonly property string tip: table.explanation(hoveredRow, hoveredCell)
    property Item currentItem: null ///< the current row, while it is in sight
    property string typed

    signal activated(int row)
    signal menuWanted(real x, real y)
    signal previewWanted(var event)
    signal removalWanted
    signal sidewaysWanted(real distance)

    activeFocusOnTab: true

    function scrollTo(offset: real) {
        visibleRows.offset = offset;
    }
    function show(row: int) {
        visibleRows.show(row);
    }
    function tellRow() {
        if (activeFocus)
            Assistive.focus(slots.itemAt(visibleRows.slotOf(table.currentRow)));
    }
    function goTo(row: int, extend: bool) {
        table.goTo(row, extend);
        visibleRows.show(table.currentRow);
    }
    function cellAt(x: real): string {
        let end = 0;
        for (const cell in widths) {
            end += widths[cell];
            if (x < end)
                return cell;
        }
        return "";
    }
    function pointAt(x: real, y: real) {
        hoveredRow = visibleRows.rowAt(y);
        hoveredCell = cellAt(Theme.mirrored ? width - x : x);
        tipPlace = Qt.rect(x, hoveredRow * visibleRows.rowHeight - offset, 1, visibleRows.rowHeight);
    }

    Accessible.name: qsTr("Files")
    Accessible.role: Accessible.List
    Accessible.focusable: true

    // Once the row is in sight, and says what it shows now.
    onActiveFocusChanged: Qt.callLater(tellRow) // qmllint disable
    onCurrentItemChanged: Qt.callLater(tellRow) // qmllint disable
    onCurrentRowChanged: Qt.callLater(tellRow) // qmllint disable

    RowWindow {
        id: visibleRows

        height: Math.ceil(view.height)
        rowHeight: view.showsFolder ? Theme.tallRowHeight : Theme.rowHeight
        source: view.table
    }
    Repeater {
        id: slots

        model: visibleRows

        NodeRow {
            id: slot

            readonly property bool marked: row === view.table.currentRow
            readonly property string tip: current ? view.table.explanation(row, "name") + "\n"
                                                    + view.table.explanation(row, "risk") : ""

            function tellMarked() {
                if (marked)
                    view.currentItem = slot;
                else if (view.currentItem === slot)
                    view.currentItem = null;
            }

            onMarkedChanged: tellMarked()
            Component.onCompleted: tellMarked()

            current: view.activeFocus && marked
            height: visibleRows.rowHeight
            hovered: row === view.hoveredRow
            showsFolder: view.showsFolder
            widths: view.widths
            width: view.width
            y: position
        }
    }
    HoverHandler {
        id: over

        onHoveredChanged: {
            if (!hovered)
                view.pointAt(-1, -1);
        }
        onPointChanged: {
            if (hovered)
                view.pointAt(point.position.x, point.position.y);
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
        // At an end the page around the table has the wheel.
        onWheel: event => {
            const before = visibleRows.offset;
            view.scrollTo(before - (event.pixelDelta.y !== 0 ? event.pixelDelta.y : event.angleDelta.y));
            view.pointAt(event.x, event.y);
            event.accepted = visibleRows.offset !== before;
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
        else if (event.key === Qt.Key_Left || event.key === Qt.Key_Right)
            sidewaysWanted(event.key === Qt.Key_Left ? -Theme.columnS : Theme.columnS);
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
