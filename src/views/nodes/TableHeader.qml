// The titles of a table's columns: a click sorts, the edge of a column drags its width.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

Row {
    id: header

    required property NodeTableModel table
    required property var columns
    required property var widths

    signal resized(int index, real width)

    Repeater {
        model: header.columns

        T.AbstractButton {
            id: title

            required property int index
            required property var modelData

            readonly property bool sortable: modelData.column !== NodeTableModel.Risk
            readonly property bool sorted: sortable && modelData.cell !== "share" && header.table.sortColumn === modelData.column

            focusPolicy: Qt.TabFocus
            height: header.height
            text: modelData.title
            width: header.widths[index]

            Accessible.name: text
            Accessible.description: (sorted ? (header.table.sortDescending ? qsTr("Sorted, largest first.")
                                                                           : qsTr("Sorted, smallest first.")) + " " : "")
                                    + qsTr("Control with the left and right arrow changes the width.")
            Accessible.role: Accessible.ColumnHeader
            Accessible.onPressAction: clicked()

            Keys.onReturnPressed: clicked()
            Keys.onPressed: event => {
                const towardsEnd = Theme.mirrored ? Qt.Key_Left : Qt.Key_Right;
                const towardsStart = Theme.mirrored ? Qt.Key_Right : Qt.Key_Left;
                const wider = { [towardsStart]: -Theme.spaceL, [towardsEnd]: Theme.spaceL }[event.key];
                event.accepted = wider !== undefined && (event.modifiers & Qt.ControlModifier) !== 0;
                if (event.accepted)
                    header.resized(index, Math.max(Theme.columnMinimum, width + wider));
            }
            onClicked: {
                if (sortable)
                    header.table.sortBy(modelData.column);
            }

            background: Rectangle {
                color: title.hovered && title.sortable ? Theme.hover : "transparent"
                radius: Theme.radiusSmall

                FocusRing {
                    shown: title.visualFocus
                }
            }
            contentItem: RowLayout {
                layoutDirection: title.modelData.right ? Qt.RightToLeft : Qt.LeftToRight
                spacing: Theme.spaceXs

                AppText {
                    Layout.leftMargin: Theme.spaceS
                    Layout.maximumWidth: title.width - Theme.spaceXl
                    Layout.rightMargin: title.modelData.right ? Theme.spaceS : 0
                    color: title.sorted ? Theme.text : Theme.textSecondary
                    font.weight: Font.Medium
                    kind: AppText.Caption
                    text: title.text
                    Accessible.ignored: true
                }
                Icon {
                    color: Theme.accent
                    rotation: header.table.sortDescending ? 180 : 0
                    size: Theme.captionSize
                    symbol: "arrow.up"
                    visible: title.sorted
                }
                Item {
                    Layout.fillWidth: true
                }
            }

            MouseArea {
                id: edge

                property real pressedAt: 0

                anchors.bottom: parent.bottom
                anchors.right: parent.right
                anchors.top: parent.top
                cursorShape: Qt.SplitHCursor
                preventStealing: true
                width: Theme.spaceS

                onPressed: mouse => pressedAt = mouse.x
                onPositionChanged: mouse => header.resized(title.index, Math.max(Theme.columnMinimum,
                    title.width + (Theme.mirrored ? pressedAt - mouse.x : mouse.x - pressedAt)))

                Rectangle {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    color: Theme.cardBorder
                    height: parent.height / 2
                    width: Theme.hairline
                }
            }
        }
    }
}
