// A symbol of the icon table in one colour.
import QtQuick
import QtQuick.Window
import Brimlet

Item {
    id: icon

    property string symbol
    property color color: Theme.text
    property int size: Theme.iconSize

    // What points along the line of reading.
    readonly property bool directed: /^(chevron\.(left|right|compact\.right)|list\.bullet|arrow\.(up\.forward|uturn).*)$/.test(symbol)

    implicitHeight: size
    implicitWidth: size

    Image {
        readonly property int drawnSize: Math.ceil(icon.size * Screen.devicePixelRatio)

        anchors.fill: parent
        mirror: icon.directed && Theme.mirrored
        source: icon.symbol === "" ? "" : "image://icon/" + icon.symbol + "?" + encodeURIComponent(String(icon.color))
        sourceSize.height: drawnSize
        sourceSize.width: drawnSize

        Accessible.ignored: true
    }
}
