// The Explorer's list: what lies directly in the current folder.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

ColumnLayout {
    id: view

    required property ExplorerModel explorer

    spacing: 0

    FolderModel {
        id: folder

        state: App
    }
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
                { title: qsTr("%"), column: NodeTableModel.Size, cell: "share", width: Theme.columnXs, right: true },
                { title: qsTr("Files"), column: NodeTableModel.FileCount, cell: "fileCount", width: Theme.columnS, right: true },
                { title: qsTr("Category"), column: NodeTableModel.Category, cell: "categoryDot", width: Theme.columnXl },
                { title: qsTr("Modified"), column: NodeTableModel.Modified, cell: "modified", width: Theme.columnM },
                { title: qsTr("Risk"), column: NodeTableModel.Risk, cell: "risk", width: Theme.columnM }
            ]
            focus: true
            preview: quickPreview
            table: folder
            visible: folder.count > 0

            onActivated: row => folder.activate(row)
        }
        EmptyState {
            anchors.fill: parent
            message: qsTr("No folder and no large file lies directly in here.")
            symbol: "folder"
            visible: folder.ready && folder.count === 0
        }
    }
    AppText {
        Layout.bottomMargin: Theme.spaceM
        Layout.fillWidth: true
        Layout.topMargin: Theme.spaceS
        kind: AppText.Caption
        text: view.explorer.smallFilesNote
        visible: text !== ""
    }
    SelectionBar {
        Layout.fillWidth: true
        actionTitle: qsTr("Delete…")
        count: folder.selectedCount
        size: folder.selectedSize
        table: rows
        onActed: {
            nodeActions.takeSelected(folder);
            nodeActions.remove();
        }
        onCleared: folder.clearSelection()
    }
    PreviewPopup {
        preview: quickPreview
    }
}
