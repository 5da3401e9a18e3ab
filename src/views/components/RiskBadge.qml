// How dangerous a removal is: symbol and word, or the symbol alone.
import QtQuick
import QtQuick.Layouts
import Brimlet

Rectangle {
    id: badge

    required property int risk ///< 0 safe, 1 review, 2 protected
    property bool compact: false

    readonly property string title: [qsTr("Safe"), qsTr("Review"), qsTr("Protected")][risk]
    readonly property color tint: [Theme.safe, Theme.review, Theme.danger][risk]
    readonly property color ink: [Theme.safeText, Theme.reviewText, Theme.dangerText][risk]

    color: compact ? "transparent" : Theme.withAlpha(tint, Theme.tint)
    implicitHeight: row.implicitHeight + (compact ? 0 : 2 * Theme.spaceXs)
    implicitWidth: row.implicitWidth + (compact ? 0 : 2 * Theme.spaceS)
    radius: height / 2

    Accessible.name: title
    Accessible.role: Accessible.StaticText

    RowLayout {
        id: row

        anchors.centerIn: parent
        spacing: Theme.spaceXs

        Icon {
            color: badge.compact ? badge.tint : badge.ink
            size: badge.compact ? Theme.iconSize : Theme.captionSize
            symbol: ["checkmark.shield.fill", "exclamationmark.triangle.fill", "lock.fill"][badge.risk]
        }
        AppText {
            color: badge.ink
            font.weight: Font.Medium
            kind: AppText.Caption
            text: badge.title
            visible: !badge.compact
            Accessible.ignored: true
        }
    }
}
