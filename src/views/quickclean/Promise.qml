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

    Medallion {
        symbol: row.symbol
        tint: row.tint
    }
    AppText {
        Layout.fillWidth: true
        text: row.title
        wrapMode: Text.Wrap
    }
}
