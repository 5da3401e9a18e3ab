pragma ComponentBehavior: Bound

// A bar whose parts take their share of the total; the rest stays an empty track. Hovering tells a part.
import QtQuick
import Brimlet
import Brimlet.App

Rectangle {
    id: bar

    required property var segments ///< list of Segment
    required property real total
    property string hovered ///< id of the part under the pointer, or of what a legend points at

    color: Theme.track
    implicitHeight: Theme.thickBar
    radius: height / 2

    Accessible.name: qsTr("Composition")
    Accessible.role: Accessible.Chart

    Row {
        id: row

        anchors.fill: parent
        spacing: Theme.hairline

        Repeater {
            model: bar.segments

            Item {
                id: part

                required property int index
                required property var modelData

                // Whole pixels: a part that begins between two would show a seam.
                readonly property real end: bar.total > 0 ? bar.segments.slice(0, index + 1).reduce(
                    (sum, segment) => sum + segment.value, 0) / bar.total : 0
                readonly property bool first: index === 0
                readonly property bool last: index === bar.segments.length - 1

                height: bar.height
                opacity: bar.hovered === "" || bar.hovered === modelData.id ? 1 : Theme.dimmed
                width: Math.max(0, Math.round(bar.width * Math.min(1, end)) - x - (last ? 0 : Theme.hairline))

                Accessible.name: modelData.title + ", " + Formats.bytes(modelData.value)
                Accessible.role: Accessible.StaticText

                Behavior on opacity { NumberAnimation { duration: Theme.quick } }

                // Round only at the bar's own ends: the square halves cover the inner corners.
                Rectangle {
                    anchors.fill: parent
                    color: part.modelData.color
                    radius: part.first || part.last ? Math.min(bar.radius, width / 2) : 0
                }
                Rectangle {
                    anchors.fill: parent
                    anchors.leftMargin: part.first ? parent.width / 2 : 0
                    anchors.rightMargin: part.last && !part.first ? parent.width / 2 : 0
                    color: part.modelData.color
                    visible: !part.last || (!part.first && part.last)
                }
                HoverHandler {
                    onHoveredChanged: bar.hovered = hovered ? part.modelData.id : ""
                }
                AppToolTip {
                    text: part.modelData.title + " · " + Formats.bytes(part.modelData.value)
                    visible: bar.hovered === part.modelData.id
                }
            }
        }
    }
}
