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

    /// How far the first `count` parts reach.
    function pixelsOf(count: int): int {
        const sum = segments.slice(0, count).reduce((all, segment) => all + segment.value, 0);
        return total > 0 ? Math.round(width * Math.min(1, sum / total)) : 0;
    }

    color: Theme.track
    implicitHeight: Theme.thickBar
    radius: height / 2

    Accessible.name: qsTr("Composition")
    Accessible.role: Accessible.Chart

    Item {
        anchors.fill: parent

        Repeater {
            model: bar.segments

            Item {
                id: part

                required property int index
                required property var modelData

                // Whole pixels: a part that begins between two would show a seam.
                readonly property int begin: bar.pixelsOf(index)
                readonly property int end: bar.pixelsOf(index + 1)
                readonly property bool first: index === 0
                readonly property bool last: index === bar.segments.length - 1

                readonly property string tip: modelData.title + " · " + Formats.bytes(modelData.value)

                height: bar.height
                opacity: bar.hovered === "" || bar.hovered === modelData.id ? 1 : Theme.dimmed
                width: Math.max(0, end - begin - (last ? 0 : Theme.hairline))
                x: Theme.mirrored ? bar.width - begin - width : begin

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
            }
        }
    }
}
