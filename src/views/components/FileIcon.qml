// What a file or folder is, as a symbol on its kind's tint.
import QtQuick
import Brimlet

Rectangle {
    id: icon

    property string symbol: "doc.text.fill"
    property color tint: Theme.accent
    property int size: Theme.iconLarge

    color: Theme.withAlpha(tint, Theme.tint)
    implicitHeight: size
    implicitWidth: size
    radius: size / 4

    Icon {
        anchors.centerIn: parent
        color: icon.tint
        size: Math.round(icon.size * 0.58)
        symbol: icon.symbol
    }
}
