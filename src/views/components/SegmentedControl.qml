// A choice between a few ways to see the same thing.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

Rectangle {
    id: control

    required property var options ///< list of { text, symbol }
    property int index: 0

    signal chosen(int index)

    function step(towardsEnd: bool) {
        chosen(Math.max(0, Math.min(options.length - 1, index + (towardsEnd ? 1 : -1))));
    }

    color: Theme.track
    implicitHeight: Theme.controlHeight
    implicitWidth: row.implicitWidth + 2 * Theme.spaceXs / 2
    radius: Theme.radiusControl

    Accessible.role: Accessible.PageTabList

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: Theme.spaceXs / 2
        spacing: Theme.spaceXs / 2

        Repeater {
            model: control.options

            T.AbstractButton {
                id: choice

                required property int index
                required property var modelData

                readonly property bool on: index === control.index

                Layout.fillHeight: true
                focusPolicy: Qt.StrongFocus
                implicitWidth: implicitContentWidth + leftPadding + rightPadding
                leftPadding: Theme.spaceM
                rightPadding: Theme.spaceM
                text: modelData.text

                Accessible.name: text
                Accessible.role: Accessible.RadioButton
                Accessible.checkable: true
                Accessible.checked: on
                Accessible.onPressAction: clicked()

                Keys.onReturnPressed: clicked()
                Keys.onLeftPressed: control.step(Theme.mirrored)
                Keys.onRightPressed: control.step(!Theme.mirrored)
                onClicked: control.chosen(index)

                background: Rectangle {
                    color: choice.on ? Theme.card : choice.hovered ? Theme.hover : "transparent"
                    radius: Theme.radiusControl - Theme.spaceXs / 2

                    Behavior on color { ColorAnimation { duration: Theme.quick } }
                    FocusRing {
                        shown: choice.visualFocus
                    }
                }
                contentItem: RowLayout {
                    spacing: Theme.spaceXs

                    Icon {
                        color: choice.on ? Theme.accent : Theme.textSecondary
                        size: Theme.iconSmall
                        symbol: choice.modelData.symbol
                    }
                    AppText {
                        Layout.fillWidth: true
                        color: choice.on ? Theme.text : Theme.textSecondary
                        kind: AppText.Strong
                        text: choice.text
                        Accessible.ignored: true
                    }
                }
            }
        }
    }
}
