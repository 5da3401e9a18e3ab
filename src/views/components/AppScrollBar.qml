// A slim bar that shows only while it is of use.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.ScrollBar {
    id: control

    implicitHeight: Theme.spaceS
    implicitWidth: Theme.spaceS
    minimumSize: 0.06
    padding: Theme.spaceXs / 2
    visible: size < 1

    contentItem: Rectangle {
        color: Theme.textSecondary
        implicitHeight: Theme.spaceXs
        implicitWidth: Theme.spaceXs
        opacity: control.pressed ? 0.8 : control.active ? Theme.dimmed : 0
        radius: width / 2

        Behavior on opacity { NumberAnimation { duration: Theme.gentle } }
    }
}
