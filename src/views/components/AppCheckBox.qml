// A box that is off, partly on, or on. It shows what it is told; `clicked` says that the user wants it changed.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

T.CheckBox {
    id: control

    required property int tick ///< 0 off, 1 partly, 2 on
    property string name: text ///< for assistive tools

    checkState: tick === 2 ? Qt.Checked : tick === 1 ? Qt.PartiallyChecked : Qt.Unchecked
    focusPolicy: Qt.StrongFocus
    implicitHeight: Math.max(Theme.iconLarge, implicitContentHeight)
    implicitWidth: implicitContentWidth
    nextCheckState: () => checkState
    opacity: enabled ? 1 : Theme.disabled
    tristate: true

    Accessible.name: name
    Accessible.role: Accessible.CheckBox
    Accessible.onPressAction: control.clicked()
    Accessible.onToggleAction: control.clicked()

    contentItem: RowLayout {
        spacing: Theme.spaceS

        Rectangle {
            Layout.leftMargin: Theme.spaceXs / 2
            Layout.preferredHeight: Theme.iconSize + Theme.focusWidth
            Layout.preferredWidth: Theme.iconSize + Theme.focusWidth
            Layout.rightMargin: Theme.spaceXs / 2
            border.color: control.hovered ? Theme.accent : Theme.textSecondary
            border.width: control.tick > 0 ? 0 : Theme.hairline
            color: control.tick > 0 ? Theme.accent : "transparent"
            radius: Theme.radiusSmall

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
            Layout.fillWidth: true
            text: control.text.replace(/\*\*(.+?)\*\*/g, "<b>$1</b>")
            textFormat: Text.StyledText
            visible: text !== ""
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
}
