// The scanned tree, folder by folder: as a list or as a map.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    ExplorerModel {
        id: explorer

        state: App
    }
    Shortcut {
        enabled: explorer.canGoUp
        sequence: "Ctrl+["
        onActivated: explorer.goUp()
    }
    ScanPrompt {
        anchors.fill: parent
        message: qsTr("Browse folder by folder sorted by size, like a Finder that shows what everything really takes up.")
        title: qsTr("Folder explorer")
        visible: explorer.isEmpty
    }
    ColumnLayout {
        anchors.fill: parent
        anchors.margins: Theme.spaceXl
        anchors.bottomMargin: 0
        anchors.topMargin: Theme.spaceL
        spacing: Theme.spaceL
        visible: !explorer.isEmpty

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceS

            IconButton {
                enabled: explorer.canGoUp
                symbol: "chevron.left"
                text: qsTr("Back")
                onClicked: explorer.goUp()
            }
            Breadcrumbs {
                Layout.fillWidth: true
                steps: explorer.crumbs
                onChosen: index => explorer.goTo(index)
            }
            AppButton {
                symbol: "arrow.up.forward.app"
                text: qsTr("Show in Finder")
                onClicked: explorer.revealCurrent()
            }
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceM

            AppText {
                Layout.fillWidth: true
                Layout.maximumWidth: implicitWidth + 1
                elide: Text.ElideMiddle
                kind: AppText.Title
                text: explorer.title
                Accessible.role: Accessible.Heading
            }
            AppText {
                Layout.alignment: Qt.AlignBaseline
                color: Theme.textSecondary
                figures: true
                kind: AppText.Heading
                text: Formats.bytes(explorer.size)
            }
            AppText {
                Layout.alignment: Qt.AlignBaseline
                color: Theme.textSecondary
                text: qsTr("%1 files").arg(Formats.count(explorer.fileCount))
            }
            Item {
                Layout.fillWidth: true
            }
            SegmentedControl {
                index: explorer.showsMap ? 1 : 0
                options: [
                    { text: qsTr("List"), symbol: "list.bullet" },
                    { text: qsTr("Map"), symbol: "chart.pie" }
                ]
                onChosen: index => explorer.showsMap = index === 1
            }
        }
        SegmentedBar {
            Layout.fillWidth: true
            segments: explorer.segments
            total: explorer.size
            visible: !explorer.showsMap
        }
        Loader {
            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true
            sourceComponent: explorer.showsMap ? map : list
        }
    }

    Component {
        id: list

        FolderList {
            explorer: explorer
            focus: true
        }
    }
    Component {
        id: map

        MapPane {
            explorer: explorer
            focus: true
        }
    }
}
