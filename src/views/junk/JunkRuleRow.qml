// A rule that found something: its box, what it is, and how it removes. Opens to its items.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: row

    required property int index
    required property string title
    required property string detail
    required property string removal
    required property real size
    required property real count
    required property int risk
    required property int tick
    required property bool expanded
    property bool focusShown: false

    signal opened(bool open)
    signal ticked

    implicitHeight: Math.max(Theme.ruleRowHeight, texts.implicitHeight + 2 * Theme.spaceM) + Theme.spaceS

    Accessible.name: title + ", " + figures.text
    Accessible.checkable: count > 0
    Accessible.checkStateMixed: tick === 1
    Accessible.checked: tick === 2
    Accessible.description: badge.title + ". " + detail + " " + removal
    Accessible.focusable: true
    Accessible.role: Accessible.ListItem
    Accessible.onPressAction: row.opened(!row.expanded)

    Rectangle {
        id: surface

        anchors.bottomMargin: Theme.spaceS
        anchors.fill: parent
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.card
        radius: Theme.radiusControl

        Rectangle {
            anchors.fill: parent
            color: pointer.hovered ? Theme.hover : "transparent"
            radius: parent.radius
        }
        FocusRing {
            anchors.margins: 0
            radius: parent.radius
            shown: row.focusShown
        }
    }
    RowLayout {
        anchors.fill: surface
        anchors.leftMargin: Theme.spaceM
        anchors.rightMargin: Theme.spaceL
        spacing: Theme.spaceM

        AppCheckBox {
            enabled: row.count > 0
            focusPolicy: Qt.NoFocus
            name: row.title
            tick: row.tick
            onClicked: row.ticked()
        }
        Icon {
            color: Theme.textSecondary
            rotation: !row.expanded ? 0 : Theme.mirrored ? -90 : 90
            size: Theme.iconSmall
            symbol: "chevron.right"

            Behavior on rotation { NumberAnimation { duration: Theme.quick } }
        }
        ColumnLayout {
            id: texts

            Layout.fillWidth: true
            spacing: Theme.spaceXs / 2

            RowLayout {
                Layout.fillWidth: true
                spacing: Theme.spaceS

                AppText {
                    Layout.fillWidth: true
                    Layout.maximumWidth: implicitWidth + 1
                    kind: AppText.Strong
                    text: row.title
                    Accessible.ignored: true
                }
                RiskBadge {
                    id: badge

                    risk: row.risk
                }
                Item {
                    Layout.fillWidth: true
                }
            }
            AppText {
                Layout.fillWidth: true
                kind: AppText.Caption
                text: row.detail
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
            AppText {
                Layout.fillWidth: true
                color: row.risk === 1 ? Theme.reviewText : Theme.textSecondary
                kind: AppText.Caption
                text: row.removal
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
        }
        ColumnLayout {
            spacing: Theme.spaceXs / 2

            AppText {
                Layout.alignment: Qt.AlignRight
                figures: true
                kind: AppText.Heading
                text: Formats.bytes(row.size)
                Accessible.ignored: true
            }
            AppText {
                id: figures

                Layout.alignment: Qt.AlignRight
                figures: true
                kind: AppText.Caption
                text: qsTr("%1 items").arg(Formats.count(row.count))
                Accessible.ignored: true
            }
        }
    }
    HoverHandler {
        id: pointer
    }
    TapHandler {
        onTapped: row.opened(!row.expanded)
    }
}
