// By File Type: the kinds as tiles, and the files of the chosen one.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    property int kind: 2 ///< video

    FilterEditor {
        id: filterEditor

        homeFolder: App.homeFolder
    }
    FileListModel {
        id: files

        filter: filterEditor
        onlyKind: view.kind
        state: App
    }
    KindTilesModel {
        id: kinds

        state: App
    }
    ScanPrompt {
        anchors.fill: parent
        message: qsTr("Videos, photos, documents, installers, archives… Scan your disk to see them grouped.")
        title: qsTr("Files by type")
        visible: !App.scan.hasScan
    }
    TablePage {
        anchors.fill: parent
        visible: App.scan.hasScan

        PageHeader {
            Layout.fillWidth: true
            subtitle: qsTr("Based on each file’s extension, wherever it is.")
            title: qsTr("By File Type")
        }
        ListView {
            id: tiles

            Layout.fillWidth: true
            Layout.margins: -Theme.spaceXs
            Layout.preferredHeight: contentItem.childrenRect.height + 2 * Theme.spaceXs
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            leftMargin: Theme.spaceXs
            model: kinds
            orientation: ListView.Horizontal
            rightMargin: Theme.spaceXs
            spacing: Theme.spaceS

            delegate: KindTile {
                required property int index

                selected: kind === view.kind
                y: Theme.spaceXs
                onClicked: view.kind = kind
            }
        }
        FilterBar {
            Layout.fillWidth: true
            filter: filterEditor
            resultCount: files.count
            resultSize: files.totalSize
            showKinds: false
            onExportWanted: files.exportCsv()
        }
        FilesTable {
            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true
            table: files
        }
        AppText {
            Layout.bottomMargin: Theme.spaceL
            Layout.fillWidth: true
            kind: AppText.Caption
            text: files.smallFilesNote
            visible: text !== ""
            wrapMode: Text.Wrap
        }
    }
}
