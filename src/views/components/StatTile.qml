// One figure with its name: symbol, title, value and a caption.
import QtQuick
import QtQuick.Layouts
import Brimlet

Card {
    id: tile

    required property string title
    required property string value
    property string caption
    property string symbol
    property color tint: Theme.accent

    Accessible.name: title + ": " + value
    Accessible.role: Accessible.StaticText

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceS

        Medallion {
            symbol: tile.symbol
            tint: tile.tint
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            text: tile.title
            Accessible.ignored: true
        }
    }
    AppText {
        Layout.fillWidth: true
        figures: true
        fontSizeMode: Text.HorizontalFit
        kind: AppText.Title
        minimumPixelSize: Theme.headingSize
        text: tile.value
        Accessible.ignored: true
    }
    AppText {
        Layout.fillWidth: true
        Layout.topMargin: -Theme.spaceS
        kind: AppText.Caption
        text: tile.caption
        visible: tile.caption !== ""
    }
}
