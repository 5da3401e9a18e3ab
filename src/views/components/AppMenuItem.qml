// One entry of a menu: its text, and its shortcut at the far end.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

T.MenuItem {
    id: control

    property string shortcut

    implicitHeight: Theme.controlHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: Theme.spaceM
    opacity: enabled ? 1 : Theme.disabled
    rightPadding: Theme.spaceM

    Accessible.name: text
    Accessible.role: Accessible.MenuItem
    Accessible.onPressAction: control.triggered()

    background: Rectangle {
        color: control.highlighted ? Theme.selection : "transparent"
        radius: Theme.radiusControl
    }
    contentItem: RowLayout {
        spacing: Theme.spaceXl

        AppText {
            Layout.fillWidth: true
            text: control.text
            Accessible.ignored: true
        }
        AppText {
            color: Theme.textSecondary
            text: control.shortcut
            visible: control.shortcut !== ""
            Accessible.ignored: true
        }
    }
}
