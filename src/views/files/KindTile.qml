// One kind of file with its share of the scan; the chosen one is tinted.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

T.AbstractButton {
    id: tile

    required property int kind
    required property string title
    required property string symbol
    required property color color
    required property real size ///< bytes
    required property real fileCount
    property bool selected: false

    focusPolicy: Qt.StrongFocus
    bottomPadding: Theme.spaceM
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: Theme.spaceM
    rightPadding: Theme.spaceM
    topPadding: Theme.spaceM
    implicitWidth: Math.max(Theme.tileWidth, implicitContentWidth + leftPadding + rightPadding)
    text: title

    Accessible.checkable: true
    Accessible.checked: selected
    readonly property string countText: qsTr("%1 files").arg(Formats.count(fileCount))

    Accessible.name: title + ", " + Formats.bytes(size) + ", " + countText
    Accessible.role: Accessible.RadioButton
    Accessible.onPressAction: clicked()

    Keys.onReturnPressed: clicked()

    background: Rectangle {
        border.color: tile.selected ? Theme.withAlpha(tile.color, 2 * Theme.faint) : Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.card
        radius: Theme.radiusCard

        Rectangle {
            anchors.fill: parent
            color: tile.selected ? Theme.withAlpha(tile.color, Theme.tint)
                                 : tile.hovered ? Theme.hover : "transparent"
            radius: parent.radius

            Behavior on color { ColorAnimation { duration: Theme.quick } }
        }
        FocusRing {
            radius: Theme.radiusCard + Theme.focusWidth
            shown: tile.visualFocus
        }
    }
    contentItem: ColumnLayout {
        spacing: Theme.spaceXs

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceS

            Icon {
                color: tile.color
                symbol: tile.symbol
            }
            AppText {
                Layout.fillWidth: true
                kind: AppText.Strong
                text: tile.title
                Accessible.ignored: true
            }
        }
        AppText {
            Layout.fillWidth: true
            figures: true
            kind: AppText.Heading
            text: Formats.bytes(tile.size)
            Accessible.ignored: true
        }
        AppText {
            Layout.fillWidth: true
            kind: AppText.Caption
            text: tile.countText
            Accessible.ignored: true
        }
    }
}
