pragma ComponentBehavior: Bound

// What the scanned space is made of: the bar, and its legend with shares.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Card {
    id: card

    required property var segments ///< list of Segment
    required property real total

    heading: qsTr("Composition")

    SegmentedBar {
        id: bar

        Layout.fillWidth: true
        Layout.topMargin: Theme.spaceXs
        segments: card.segments
        total: card.total
    }
    GridLayout {
        Layout.fillWidth: true
        columnSpacing: Theme.spaceXl
        columns: card.width < Theme.scaled(620) ? 1 : 2
        rowSpacing: 0

        Repeater {
            model: card.segments

            Rectangle {
                id: row

                required property var modelData

                Layout.fillWidth: true
                Layout.preferredHeight: Theme.rowHeight
                color: bar.hovered === modelData.id ? Theme.hover : "transparent"
                radius: Theme.radiusControl

                Accessible.name: modelData.title + ", " + size.text + ", " + share.text
                Accessible.role: Accessible.StaticText

                RowLayout {
                    anchors.fill: parent
                    anchors.leftMargin: Theme.spaceS
                    anchors.rightMargin: Theme.spaceS
                    spacing: Theme.spaceM

                    LegendDot {
                        color: row.modelData.color
                    }
                    AppText {
                        Layout.fillWidth: true
                        text: row.modelData.title
                        Accessible.ignored: true
                    }
                    AppText {
                        id: size

                        figures: true
                        text: Formats.bytes(row.modelData.value)
                        Accessible.ignored: true
                    }
                    AppText {
                        id: share

                        Layout.preferredWidth: Theme.tallRowHeight
                        color: Theme.textSecondary
                        figures: true
                        horizontalAlignment: Text.AlignRight
                        text: Formats.percent(row.modelData.value, card.total)
                        Accessible.ignored: true
                    }
                }
                HoverHandler {
                    onHoveredChanged: bar.hovered = hovered ? row.modelData.id : ""
                }
            }
        }
    }
}
