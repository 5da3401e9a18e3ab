// A text in one of the window's styles. Shortened at its end unless told otherwise; never read as markup.
import QtQuick
import Brimlet

Text {
    enum Kind { Caption, Body, Strong, Heading, Title, Display }

    property int kind: AppText.Body
    property bool figures: false

    readonly property var sizes: [Theme.captionSize, Theme.bodySize, Theme.bodySize, Theme.headingSize,
        Theme.titleSize, Theme.displaySize]
    readonly property var weights: [Font.Normal, Font.Normal, Font.Medium, Font.DemiBold, Font.Bold, Font.Bold]

    color: kind === AppText.Caption ? Theme.textSecondary : Theme.text
    elide: wrapMode === Text.NoWrap ? Text.ElideRight : Text.ElideNone
    // A text of its own direction keeps to the side where the page's texts begin.
    horizontalAlignment: Text.AlignLeft
    font.family: figures ? Theme.figureFamily : Theme.wordFamily
    font.pixelSize: sizes[kind]
    font.weight: weights[kind]
    lineHeight: wrapMode === Text.NoWrap ? 1 : Theme.lineHeight
    textFormat: Text.PlainText
    verticalAlignment: Text.AlignVCenter

    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
