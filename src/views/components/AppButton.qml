// The button of all screens; its wrappers PrimaryButton and DestructiveButton say what it is for.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

T.Button {
    id: control

    enum Kind { Normal, Primary, Destructive, DestructiveFilled }

    property int kind: AppButton.Normal
    property bool large: false
    property string symbol
    property string explanation ///< tooltip, and the description for assistive tools
    property bool menuIndicator: false

    readonly property string tip: explanation
    readonly property bool filled: kind === AppButton.Primary || kind === AppButton.DestructiveFilled
    readonly property color ink: filled ? Theme.textOnAccent
                                        : kind === AppButton.Destructive ? Theme.dangerText : Theme.text
    readonly property color fill: kind === AppButton.Primary ? Theme.accent
                                : kind === AppButton.DestructiveFilled ? Theme.dangerFill : Theme.card

    focusPolicy: Qt.StrongFocus
    implicitHeight: large ? Theme.largeControlHeight : Theme.controlHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: large ? Theme.spaceXl : Theme.spaceL
    opacity: enabled ? 1 : Theme.disabled
    rightPadding: leftPadding

    Accessible.name: text
    Accessible.description: explanation
    Accessible.role: Accessible.Button
    Accessible.onPressAction: control.clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    background: Rectangle {
        border.color: control.filled ? "transparent" : Theme.cardBorder
        border.width: control.filled ? 0 : Theme.hairline
        color: control.fill
        radius: Theme.radiusControl

        Rectangle {
            anchors.fill: parent
            color: control.down ? Theme.pressed : control.hovered ? Theme.hover : "transparent"
            radius: parent.radius

            Behavior on color { ColorAnimation { duration: Theme.quick } }
        }
        FocusRing {
            shown: control.visualFocus
        }
    }
    contentItem: Item {
        implicitHeight: children[0].implicitHeight
        implicitWidth: children[0].implicitWidth

        RowLayout {
            anchors.centerIn: parent
            spacing: Theme.spaceS
            width: Math.min(implicitWidth, parent.width)

            Icon {
                color: control.ink
                size: Theme.iconSmall
                symbol: control.symbol
                visible: control.symbol !== ""
            }
            AppText {
                Layout.fillWidth: true
                color: control.ink
                kind: AppText.Strong
                text: control.text
                visible: control.text !== ""
                Accessible.ignored: true
            }
            Icon {
                color: Theme.textSecondary
                size: Theme.iconSmall
                symbol: "chevron.down"
                visible: control.menuIndicator
            }
        }
    }
}
