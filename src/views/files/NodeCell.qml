// One cell of a row: the name, a size, a category, a risk, or plain text.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet

Item {
    id: cell

    required property string role ///< what it shows of the row
    required property var row ///< the NodeRow it belongs to
    property bool alignsRight: false

    Loader {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceS
        anchors.rightMargin: Theme.spaceS
        sourceComponent: cell.role === "name" ? nameCell : cell.role === "size" ? sizeCell
                       : cell.role === "kindText" || cell.role === "categoryDot" ? dotCell
                       : cell.role === "risk" ? riskCell : textCell
    }

    Component {
        id: nameCell

        RowLayout {
            spacing: Theme.spaceS

            FileIcon {
                size: cell.row.showsFolder ? Theme.iconLarge : Theme.iconLarge - Theme.spaceXs
                symbol: cell.row.symbol
                tint: cell.row.directory ? cell.row.categoryColor : cell.row.kindColor
            }
            ColumnLayout {
                spacing: 0

                AppText {
                    Layout.fillWidth: true
                    elide: Text.ElideMiddle
                    text: cell.row.name
                    Accessible.ignored: true
                }
                AppText {
                    Layout.fillWidth: true
                    elide: Text.ElideMiddle
                    kind: AppText.Caption
                    text: cell.row.folder
                    visible: cell.row.showsFolder
                    Accessible.ignored: true
                }
            }
            Icon {
                color: Theme.review
                size: Theme.iconSmall
                symbol: "lock.fill"
                visible: cell.row.unreadable

                HoverHandler {
                    id: lockHover
                }
                AppToolTip {
                    text: qsTr("No permission to read. Grant Full Disk Access.")
                    visible: lockHover.hovered
                }
            }
            HoverHandler {
                id: nameHover
            }
            AppToolTip {
                text: cell.row.path
                visible: nameHover.hovered && !lockHover.hovered
            }
        }
    }
    Component {
        id: sizeCell

        Item {
            SizeCell {
                anchors.verticalCenter: parent.verticalCenter
                animated: false
                fraction: cell.row.sizeFraction
                size: cell.row.size
                width: parent.width
            }
        }
    }
    Component {
        id: dotCell

        RowLayout {
            spacing: Theme.spaceS - Theme.hairline

            LegendDot {
                color: cell.role === "kindText" ? cell.row.kindColor : cell.row.categoryColor
                implicitHeight: Theme.smallDot
                implicitWidth: Theme.smallDot
            }
            AppText {
                Layout.fillWidth: true
                color: Theme.textSecondary
                text: cell.role === "kindText" ? cell.row.kindText : cell.row.category
                Accessible.ignored: true
            }
        }
    }
    Component {
        id: riskCell

        Item {
            RiskBadge {
                anchors.verticalCenter: parent.verticalCenter
                risk: cell.row.risk
            }
            HoverHandler {
                id: riskHover
            }
            AppToolTip {
                text: cell.row.riskReason
                visible: riskHover.hovered
            }
        }
    }
    Component {
        id: textCell

        AppText {
            color: Theme.textSecondary
            figures: cell.alignsRight
            horizontalAlignment: cell.alignsRight ? Text.AlignRight : Text.AlignLeft
            text: cell.row.cellText(cell.role)
            Accessible.ignored: true
        }
    }
}
