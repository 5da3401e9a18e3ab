// A symbol on a soft tint of its colour, in a circle or, where it stands in a row, in a rounded square.
import QtQuick
import Brimlet

Rectangle {
    id: medallion

    property string symbol
    property color tint: Theme.accent
    property color ink: tint
    property int size: Theme.iconButtonSize
    property int symbolSize: Theme.iconSize
    property bool round: false

    color: Theme.withAlpha(tint, Theme.tint)
    implicitHeight: size
    implicitWidth: size
    radius: round ? width / 2 : Theme.radiusControl

    Icon {
        anchors.centerIn: parent
        color: medallion.ink
        size: medallion.symbolSize
        symbol: medallion.symbol
    }
}
