// A button that is only a symbol; its text is the tooltip and the accessible name.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.Button {
    id: control

    required property string symbol

    readonly property string tip: text

    focusPolicy: Qt.StrongFocus
    implicitHeight: Theme.iconButtonSize
    implicitWidth: Theme.iconButtonSize
    opacity: enabled ? 1 : Theme.disabled

    Accessible.name: text
    Accessible.role: Accessible.Button
    Accessible.onPressAction: control.clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        color: control.down ? Theme.pressed : control.hovered ? Theme.hover : "transparent"
        radius: Theme.radiusControl

        Behavior on color { ColorAnimation { duration: Theme.quick } }
        FocusRing {
            shown: control.visualFocus
        }
    }
    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            color: Theme.textSecondary
            symbol: control.symbol
        }
    }
}
