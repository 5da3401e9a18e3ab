// What the map's hovered segment is, or the current folder where none is hovered.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Card {
    id: panel

    required property SunburstView map

    NodeCard {
        id: node

        map: panel.map
    }
    ScrollArea {
        id: area

        Layout.fillHeight: true
        Layout.fillWidth: true
        contentHeight: words.implicitHeight

        Accessible.name: qsTr("About %1").arg(node.name)
        Accessible.role: Accessible.Pane

        ColumnLayout {
            id: words

            spacing: Theme.spaceM
            width: area.width

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spaceM

                FileIcon {
                    directory: node.directory
                    path: node.path
                    size: Theme.iconHuge
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 0

                    AppText {
                        Layout.fillWidth: true
                        elide: Text.ElideMiddle
                        kind: AppText.Heading
                        text: node.name
                    }
                    AppText {
                        Layout.fillWidth: true
                        color: Theme.textSecondary
                        text: node.category
                    }
                }
            }
            Flow {
                Layout.fillWidth: true
                spacing: Theme.spaceS

                AppText {
                    figures: true
                    kind: AppText.Title
                    text: Formats.bytes(node.size)
                }
                RiskBadge {
                    readonly property string tip: node.riskReason

                    risk: node.risk
                }
            }
            AppText {
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                kind: AppText.Caption
                text: node.path
            }
            AppText {
                Layout.fillWidth: true
                Layout.topMargin: Theme.spaceS
                font.weight: Font.DemiBold
                text: qsTr("Largest items")
                visible: node.largest.length > 0
            }
            Repeater {
                model: node.largest

                RowLayout {
                    id: row

                    required property var modelData

                    Layout.fillWidth: true
                    spacing: Theme.spaceS

                    LegendDot {
                        color: row.modelData.color
                        implicitHeight: Theme.smallDot
                        implicitWidth: Theme.smallDot
                    }
                    AppText {
                        Layout.fillWidth: true
                        elide: Text.ElideMiddle
                        text: row.modelData.name
                    }
                    AppText {
                        color: Theme.textSecondary
                        figures: true
                        text: Formats.bytes(row.modelData.size)
                    }
                }
            }
        }
    }
    AppText {
        Layout.fillWidth: true
        kind: AppText.Caption
        text: qsTr("Hover to inspect, click a ring to open a folder, click the centre to go up.")
        wrapMode: Text.Wrap
    }
}
