// A symbol of the icon table in one colour.
import QtQuick
import QtQuick.Window
import Brimlet

Image {
    property string symbol
    property color color: Theme.text
    property int size: Theme.iconSize

    readonly property int drawnSize: Math.ceil(size * Screen.devicePixelRatio)

    asynchronous: false
    height: size
    implicitHeight: size
    implicitWidth: size
    smooth: true
    source: symbol === "" ? "" : "image://icon/" + symbol + "?" + encodeURIComponent(String(color))
    sourceSize: Qt.size(drawnSize, drawnSize)
    width: size

    Accessible.ignored: true
}
