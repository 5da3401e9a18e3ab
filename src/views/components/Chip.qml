// A rounded switch for one value of a filter; tinted while it is on.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

T.AbstractButton {
    id: chip

    property string symbol
    property color tint: Theme.accent
    property string removeText ///< what the button at its end does; empty for none

    signal removed

    checkable: false
    focusPolicy: Qt.StrongFocus
    implicitHeight: Theme.iconButtonSize
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: Theme.spaceM
    rightPadding: Theme.spaceM

    Accessible.checkable: removeText === ""
    Accessible.checked: checked
    Accessible.name: text
    Accessible.role: Accessible.CheckBox
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        border.color: chip.checked ? Theme.withAlpha(chip.tint, Theme.faint) : Theme.cardBorder
        border.width: Theme.hairline
        color: chip.checked ? Theme.withAlpha(chip.tint, 2 * Theme.tint) : Theme.card
        radius: height / 2

        Behavior on color { ColorAnimation { duration: Theme.quick } }
        Rectangle {
            anchors.fill: parent
            color: chip.hovered ? Theme.hover : "transparent"
            radius: parent.radius
        }
        FocusRing {
            radius: height / 2
            shown: chip.visualFocus
        }
    }
    contentItem: RowLayout {
        spacing: Theme.spaceXs + Theme.hairline

        Icon {
            color: chip.tint
            size: Theme.iconSmall
            symbol: chip.symbol
        }
        AppText {
            Layout.fillWidth: true
            Layout.maximumWidth: Theme.fieldWidth
            elide: Text.ElideMiddle
            text: chip.text
            Accessible.ignored: true
        }
        IconButton {
            implicitHeight: Theme.iconSize
            implicitWidth: Theme.iconSize
            symbol: "xmark"
            text: chip.removeText
            visible: chip.removeText !== ""
            onClicked: chip.removed()
        }
    }
}
