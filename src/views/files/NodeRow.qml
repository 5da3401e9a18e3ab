// One row of a table of nodes.
pragma ComponentBehavior: Bound

import QtQuick
import Brimlet
import Brimlet.App

Rectangle {
    id: row

    required property int position
    required property string name
    required property string folder
    required property string path
    required property real size
    required property real sizeFraction
    required property string share
    required property string kindText
    required property color kindColor
    required property string symbol
    required property string category
    required property color categoryColor
    required property string modified
    required property string lastOpened
    required property string fileCount
    required property int risk
    required property string riskReason
    required property bool directory
    required property bool unreadable
    required property bool selected
    required property int row

    property var columns: []
    property var widths: []
    property bool current: false
    property bool hovered: false
    property bool showsFolder: false

    color: selected ? Theme.selection : hovered ? Theme.hover : "transparent"
    radius: Theme.radiusControl

    Accessible.name: name + ", " + cellText("size")
    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: selected

    function cellText(cell: string): string {
        return cell === "size" ? Formats.bytes(size) : String(row[cell]);
    }

    Rectangle {
        anchors.fill: parent
        border.color: Theme.accent
        border.width: Theme.hairline
        color: "transparent"
        radius: parent.radius
        visible: row.current
    }
    Row {
        anchors.fill: parent

        Repeater {
            model: row.columns

            NodeCell {
                required property int index
                required property var modelData

                role: modelData.cell
                height: row.height
                alignsRight: modelData.right === true
                width: row.widths[index] ?? 0
                row: row
            }
        }
    }
}
