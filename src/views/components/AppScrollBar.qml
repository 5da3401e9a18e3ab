// A slim bar that shows while there is more than fits, in the accent colour where the keyboard moves it.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.ScrollBar {
    id: control

    property bool focused: false

    implicitHeight: Theme.spaceS
    implicitWidth: Theme.spaceS
    minimumSize: 0.06
    padding: Theme.spaceXs / 2
    visible: size < 1

    contentItem: Rectangle {
        color: control.focused ? Theme.accent : Theme.textSecondary
        implicitHeight: Theme.spaceXs
        implicitWidth: Theme.spaceXs
        opacity: control.pressed || control.hovered || control.focused ? 0.8 : Theme.dimmed
        radius: Math.min(width, height) / 2

        Behavior on opacity { NumberAnimation { duration: Theme.quick } }
    }
}
