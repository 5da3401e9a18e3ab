// What a file or folder is, as a symbol on the tint of its kind.
import QtQuick
import Brimlet

Rectangle {
    id: icon

    required property string path ///< as shown; its last component tells the kind
    property bool directory: false
    property int size: Theme.iconLarge

    readonly property color tint: FileLooks.color(path, directory)

    color: Theme.withAlpha(tint, Theme.tint)
    implicitHeight: size
    implicitWidth: size
    radius: size / 4

    Icon {
        anchors.centerIn: parent
        color: icon.tint
        size: Math.round(icon.size * 0.58)
        symbol: FileLooks.symbol(icon.path, icon.directory)
    }
}
