// Large & Old: every scanned file, through the application's own filter.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    FilterEditor {
        id: filterEditor

        homeFolder: App.homeFolder
        shared: App.navigation
    }
    FileListModel {
        id: files

        filter: filterEditor
        state: App
    }
    ScanPrompt {
        anchors.fill: parent
        message: qsTr("Scan your disk to list every file over 512 KB, with filters for size, date, type and category.")
        title: qsTr("Large and old files")
        visible: !App.scan.hasScan
    }
    TablePage {
        anchors.fill: parent
        visible: App.scan.hasScan

        PageHeader {
            Layout.fillWidth: true
            subtitle: qsTr("Every scanned file. Sort by any column and combine filters.")
            title: qsTr("Large & Old")
        }
        FilterBar {
            Layout.fillWidth: true
            filter: filterEditor
            resultCount: files.count
            resultSize: files.totalSize
            onExportWanted: files.exportCsv()
        }
        FilesTable {
            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true
            table: files
        }
    }
}
