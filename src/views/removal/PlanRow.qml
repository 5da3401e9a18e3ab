// One row of the confirmation sheet: a section's heading, or an item with the reason of its verdict.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: row

    required property bool isHeading
    required property int risk
    required property real count
    required property real size
    required property string name
    required property string reason
    required property string path
    required property bool directory
    property bool focusShown: false

    readonly property string tip: isHeading ? "" : path

    implicitHeight: isHeading ? Theme.controlHeight + Theme.spaceS
                              : Math.max(Theme.planRowHeight, texts.implicitHeight + 2 * Theme.spaceS)

    Accessible.name: isHeading ? badge.title + ", " + summary.text : name + ", " + Formats.bytes(size)
    Accessible.description: isHeading ? "" : badge.title + ". " + reason + " " + path
    Accessible.focusable: true
    Accessible.role: isHeading ? Accessible.Heading : Accessible.ListItem

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceM
        anchors.rightMargin: Theme.spaceM
        spacing: Theme.spaceS
        visible: row.isHeading

        RiskBadge {
            id: badge

            risk: row.risk
        }
        AppText {
            id: summary

            Layout.fillWidth: true
            color: Theme.textSecondary
            figures: true
            text: qsTr("%1 · %2").arg(Formats.count(row.count)).arg(Formats.bytes(row.size))
            Accessible.ignored: true
        }
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceM
        anchors.rightMargin: Theme.spaceM
        spacing: Theme.spaceM
        visible: !row.isHeading

        FileIcon {
            size: Theme.iconButtonSize
            directory: row.directory
            opacity: row.risk === 2 ? Theme.disabled : 1
            path: row.path
        }
        ColumnLayout {
            id: texts

            Layout.fillWidth: true
            spacing: Theme.spaceXs / 2

            AppText {
                Layout.fillWidth: true
                color: row.risk === 2 ? Theme.textSecondary : Theme.text
                elide: Text.ElideMiddle
                kind: AppText.Strong
                text: row.name
                Accessible.ignored: true
            }
            AppText {
                Layout.fillWidth: true
                kind: AppText.Caption
                text: row.reason
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
            AppText {
                id: place

                Layout.fillWidth: true
                elide: Text.ElideMiddle
                font.pixelSize: Theme.smallCaptionSize
                kind: AppText.Caption
                text: row.path
                Accessible.ignored: true
            }
        }
        AppText {
            color: row.risk === 2 ? Theme.textSecondary : Theme.text
            figures: true
            text: Formats.bytes(row.size)
            Accessible.ignored: true
        }
    }
    FocusRing {
        anchors.margins: Theme.hairline
        radius: Theme.radiusControl
        shown: row.focusShown
    }
}
