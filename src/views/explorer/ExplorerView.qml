// The scanned tree, folder by folder: as a list or as a map.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    ExplorerModel {
        id: explorerModel

        state: App
    }
    Shortcut {
        enabled: explorerModel.canGoUp
        sequence: "Ctrl+["
        onActivated: explorerModel.goUp()
    }
    ScanPrompt {
        anchors.fill: parent
        message: Words.scanPromptOfExplorer
        title: qsTr("Folder explorer")
        visible: explorerModel.isEmpty
    }
    TablePage {
        anchors.fill: parent
        topGap: Theme.spaceL
        visible: !explorerModel.isEmpty

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceS

            IconButton {
                enabled: explorerModel.canGoUp
                symbol: "chevron.left"
                text: qsTr("Back")
                onClicked: explorerModel.goUp()
            }
            Breadcrumbs {
                Layout.fillWidth: true
                steps: explorerModel.crumbs
                onChosen: index => explorerModel.goTo(index)
            }
            AppButton {
                symbol: "arrow.up.forward.app"
                text: Words.showInFileManager
                onClicked: explorerModel.revealCurrent()
            }
        }
        GridLayout {
            Layout.fillWidth: true
            columnSpacing: Theme.spaceM
            columns: figures.implicitWidth + modes.implicitWidth + Theme.columnL > width ? 1 : 2
            rowSpacing: Theme.spaceS

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spaceM

                AppText {
                    Layout.fillWidth: true
                    Layout.maximumWidth: implicitWidth + 1
                    elide: Text.ElideMiddle
                    kind: AppText.Title
                    text: explorerModel.title
                    Accessible.role: Accessible.Heading
                }
                RowLayout {
                    id: figures

                    spacing: Theme.spaceM

                    AppText {
                        Layout.alignment: Qt.AlignBaseline
                        color: Theme.textSecondary
                        figures: true
                        kind: AppText.Heading
                        text: Formats.bytes(explorerModel.size)
                    }
                    AppText {
                        Layout.alignment: Qt.AlignBaseline
                        color: Theme.textSecondary
                        text: qsTr("%1 files").arg(Formats.count(explorerModel.fileCount))
                    }
                }
                Item {
                    Layout.fillWidth: true
                }
            }
            SegmentedControl {
                id: modes

                index: explorerModel.showsMap ? 1 : 0
                options: [
                    { text: qsTr("List"), symbol: "list.bullet" },
                    { text: qsTr("Map"), symbol: "chart.pie" }
                ]
                onChosen: index => explorerModel.showsMap = index === 1
            }
        }
        SegmentedBar {
            Layout.fillWidth: true
            segments: explorerModel.segments
            total: explorerModel.size
            visible: !explorerModel.showsMap
        }
        FolderList {
            Layout.fillHeight: true
            Layout.fillWidth: true
            explorer: explorerModel
            focus: !explorerModel.showsMap
            visible: !explorerModel.showsMap
        }
        MapPane {
            Layout.fillHeight: true
            Layout.fillWidth: true
            Layout.minimumHeight: Theme.mapMinimumHeight
            explorer: explorerModel
            focus: explorerModel.showsMap
            visible: explorerModel.showsMap
        }
    }
}
