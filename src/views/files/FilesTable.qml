// The table of files that Large & Old and By File Type share, with what is selected in it.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

ColumnLayout {
    id: view

    required property FileListModel table

    spacing: 0

    NodeActions {
        id: nodeActions

        state: App
    }
    QuickPreview {
        id: quickPreview
    }
    Item {
        Layout.fillHeight: true
        Layout.fillWidth: true
        Layout.minimumHeight: Theme.tableMinimumHeight

        NodeTable {
            id: rows

            actions: nodeActions
            anchors.fill: parent
            columns: [
                { title: qsTr("Name"), column: NodeTableModel.Name, cell: "name" },
                { title: qsTr("Size"), column: NodeTableModel.Size, cell: "size", width: Theme.columnM, right: true },
                { title: qsTr("Kind"), column: NodeTableModel.Kind, cell: "kind", width: Theme.columnS },
                { title: qsTr("Category"), column: NodeTableModel.Category, cell: "category", width: Theme.columnL },
                { title: qsTr("Modified"), column: NodeTableModel.Modified, cell: "modified", width: Theme.columnM },
                { title: qsTr("Last opened"), column: NodeTableModel.LastOpened, cell: "lastOpened", width: Theme.columnM },
                { title: qsTr("Risk"), column: NodeTableModel.Risk, cell: "risk", width: Theme.columnM }
            ]
            focus: true
            preview: quickPreview
            showsFolder: true
            table: view.table
            visible: view.table.count > 0

            onActivated: {
                nodeActions.takeSelected(view.table);
                nodeActions.reveal();
            }
        }
        EmptyState {
            anchors.fill: parent
            message: qsTr("No file matches these filters.")
            symbol: "magnifyingglass"
            visible: view.table.ready && view.table.count === 0
        }
    }
    SelectionBar {
        Layout.fillWidth: true
        actionTitle: qsTr("Delete…")
        count: view.table.selectedCount
        size: view.table.selectedSize
        table: rows
        onActed: {
            nodeActions.takeSelected(view.table);
            nodeActions.remove();
        }
        onCleared: view.table.clearSelection()
    }
    PreviewPopup {
        preview: quickPreview
    }
}
