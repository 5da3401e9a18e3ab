// A box that is off, partly on, or on. It shows what it is told; `clicked` says that the user wants it changed.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.AbstractButton {
    id: control

    required property int tick ///< 0 off, 1 partly, 2 on
    property string name: text ///< for assistive tools

    focusPolicy: Qt.StrongFocus
    implicitHeight: Theme.iconLarge
    implicitWidth: text === "" ? Theme.iconLarge : Theme.iconLarge + Theme.spaceS + label.implicitWidth
    opacity: enabled ? 1 : Theme.disabled

    Accessible.name: name
    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checkStateMixed: tick === 1
    Accessible.checked: tick === 2
    Accessible.onPressAction: control.clicked()
    Accessible.onToggleAction: control.clicked()

    contentItem: Item {
        Rectangle {
            id: box

            anchors.verticalCenter: parent.verticalCenter
            border.color: control.tick > 0 ? "transparent" : control.hovered ? Theme.accent : Theme.textSecondary
            border.width: control.tick > 0 ? 0 : Theme.focusWidth * 0.75
            color: control.tick > 0 ? Theme.accent : "transparent"
            height: Theme.iconSize + Theme.focusWidth
            radius: Theme.radiusSmall
            width: height
            x: (Theme.iconLarge - width) / 2

            Behavior on color { ColorAnimation { duration: Theme.quick } }

            Icon {
                anchors.centerIn: parent
                color: Theme.textOnAccent
                size: Theme.iconSmall
                symbol: control.tick === 1 ? "minus" : "checkmark"
                visible: control.tick > 0
            }
            FocusRing {
                radius: Theme.radiusSmall + Theme.focusWidth
                shown: control.visualFocus
            }
        }
        AppText {
            id: label

            anchors.left: parent.left
            anchors.leftMargin: Theme.iconLarge + Theme.spaceS
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: control.text
            textFormat: Text.MarkdownText
            visible: text !== ""
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
}
