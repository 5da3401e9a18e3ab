// One thing that the user can rely on.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: row

    required property string symbol
    required property string title
    required property color tint

    spacing: Theme.spaceM

    Rectangle {
        Layout.preferredHeight: Theme.iconButtonSize
        Layout.preferredWidth: Theme.iconButtonSize
        color: Theme.withAlpha(row.tint, Theme.tint)
        radius: Theme.radiusControl

        Icon {
            anchors.centerIn: parent
            color: row.tint
            symbol: row.symbol
        }
    }
    AppText {
        Layout.fillWidth: true
        text: row.title
        wrapMode: Text.Wrap
    }
}
