// One row of a table of nodes. A cell without a width in `widths` is not shown.
import QtQuick
import Brimlet
import Brimlet.App

Rectangle {
    id: nodeRow

    required property int row
    required property int position
    required property string name
    required property string folder
    required property real size
    required property real sizeFraction
    required property string share
    required property string kindText
    required property color kindColor
    required property string category
    required property color categoryColor
    required property string modified
    required property string lastOpened
    required property string fileCount
    required property int risk
    required property bool directory
    required property bool unreadable
    required property bool selected

    property var widths: ({}) ///< by cell
    property bool current: false
    property bool hovered: false
    property bool showsFolder: false

    function joined(texts: var): string {
        return texts.filter(text => text !== "").join(", ");
    }

    component Cell: Item {
        property real wanted: 0
        default property alias content: inside.data

        height: parent.height
        visible: wanted > 0
        width: wanted

        Item {
            id: inside

            anchors.fill: parent
            anchors.leftMargin: Theme.spaceS
            anchors.rightMargin: Theme.spaceS
        }
    }
    component Words: AppText {
        property string words

        anchors.fill: parent
        color: Theme.textSecondary
        text: visible ? words : "" // nothing is laid out for a cell that isn't shown
        Accessible.ignored: true
    }

    color: selected ? Theme.selection : hovered ? Theme.hover : "transparent"
    radius: Theme.radiusControl

    Accessible.name: name + ", " + Formats.bytes(size)
    Accessible.description: joined([badge.title, kindText, category, modified])
    Accessible.focusable: true
    Accessible.focused: current
    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: selected

    Rectangle {
        anchors.fill: parent
        border.color: Theme.accent
        border.width: Theme.hairline
        color: "transparent"
        radius: parent.radius
        visible: nodeRow.current
    }
    Row {
        anchors.fill: parent

        Cell {
            wanted: nodeRow.widths.name ?? 0

            NameCell {
                anchors.fill: parent
                directory: nodeRow.directory
                folder: nodeRow.showsFolder ? nodeRow.folder : ""
                name: nodeRow.name
                unreadable: nodeRow.unreadable
            }
        }
        Cell {
            wanted: nodeRow.widths.size ?? 0

            SizeCell {
                anchors.verticalCenter: parent.verticalCenter
                animated: false
                fraction: nodeRow.sizeFraction
                size: nodeRow.size
                width: parent.width
            }
        }
        Cell {
            wanted: nodeRow.widths.share ?? 0

            Words {
                figures: true
                horizontalAlignment: Text.AlignRight
                words: nodeRow.share
            }
        }
        Cell {
            wanted: nodeRow.widths.fileCount ?? 0

            Words {
                figures: true
                horizontalAlignment: Text.AlignRight
                words: nodeRow.fileCount
            }
        }
        Cell {
            wanted: nodeRow.widths.kind ?? 0

            DotCell {
                anchors.fill: parent
                dot: nodeRow.kindColor
                text: nodeRow.kindText
            }
        }
        Cell {
            wanted: nodeRow.widths.category ?? 0

            Words {
                words: nodeRow.category
            }
        }
        Cell {
            wanted: nodeRow.widths.categoryDot ?? 0

            DotCell {
                anchors.fill: parent
                dot: nodeRow.categoryColor
                text: nodeRow.category
            }
        }
        Cell {
            wanted: nodeRow.widths.modified ?? 0

            Words {
                words: nodeRow.modified
            }
        }
        Cell {
            wanted: nodeRow.widths.lastOpened ?? 0

            Words {
                words: nodeRow.lastOpened
            }
        }
        Cell {
            wanted: nodeRow.widths.risk ?? 0

            RiskBadge {
                id: badge

                anchors.verticalCenter: parent.verticalCenter
                risk: nodeRow.risk
            }
        }
    }
}
