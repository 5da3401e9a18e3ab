// A sortable table of nodes with a selection of many: header, the rows in sight, and what mouse and keyboard do.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Brimlet

FocusScope {
    id: view

    required property NodeTableModel table
    required property var columns ///< list of { title, column, cell, width, right }
    required property NodeActions actions
    required property QuickPreview preview
    property bool showsFolder: false

    signal activated(int row)

    property var chosenWidths: ({}) ///< by column, once dragged
    readonly property real fixedWidth: columns.reduce((sum, one, i) => i === 0 ? sum : sum + widthOf(i), 0)
    readonly property real nameWidth: chosenWidths[0] ?? Math.max(Theme.nameColumn, width - fixedWidth)
    readonly property var widths: columns.map((one, i) => i === 0 ? nameWidth : widthOf(i))
    readonly property var cellWidths: columns.reduce((all, one, i) => Object.assign(all, { [one.cell]: widths[i] }), {})
    readonly property real rowsWidth: Math.max(width, nameWidth + fixedWidth)

    function widthOf(index: int): real {
        return chosenWidths[index] ?? columns[index].width;
    }
    function openMenu(x: real, y: real) {
        actions.takeSelected(table);
        if (actions.count > 0)
            menu.popup(rows, x, y);
    }
    function remove() {
        actions.takeSelected(table);
        actions.remove();
    }

    readonly property bool onScreen: visible && Window.window !== null

    onOnScreenChanged: {
        if (!onScreen)
            preview.close();
    }

    Sideways {
        id: sideways

        anchors.fill: parent
        contentWidth: view.rowsWidth

        TableHeader {
            id: header

            columns: view.columns
            height: Theme.controlHeight
            table: view.table
            width: view.rowsWidth
            widths: view.widths

            onResized: (index, width) => view.chosenWidths = Object.assign({}, view.chosenWidths, { [index]: width })
        }
        Rectangle {
            id: line

            anchors.top: header.bottom
            color: Theme.cardBorder
            height: Theme.hairline
            width: view.rowsWidth
        }
        Item {
            anchors.bottom: parent.bottom
            anchors.bottomMargin: sideways.barHeight
            anchors.top: line.bottom
            clip: true
            width: view.rowsWidth

            TableRows {
                id: rows

                anchors.fill: parent
                focus: true
                showsFolder: view.showsFolder
                table: view.table
                widths: view.cellWidths

                onActivated: row => view.activated(row)
                onMenuWanted: (x, y) => view.openMenu(x, y)
                onPreviewWanted: event => event.accepted = view.preview.toggle(view.table)
                onRemovalWanted: view.remove()
                onSidewaysWanted: distance => sideways.scrollBy(distance)
            }
        }
    }
    AppScrollBar {
        id: bar

        anchors.bottom: parent.bottom
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.topMargin: header.height
        orientation: Qt.Vertical
        position: rows.contentHeight > 0 ? rows.offset / rows.contentHeight : 0
        size: rows.contentHeight > 0 ? rows.height / rows.contentHeight : 1
        visible: size < 1

        onPositionChanged: {
            if (pressed)
                rows.scrollTo(position * rows.contentHeight);
        }
    }
    NodeContextMenu {
        id: menu

        actions: view.actions
        preview: view.preview
    }
    Connections {
        function onStartedOver() {
            rows.scrollTo(0);
        }
        function onRowWanted(row: int) {
            rows.show(row);
        }
        function onSelectionChanged() {
            view.preview.followSelection(view.table);
        }

        target: view.table
    }
}
