// The way from the scanned folder down to the current one; each step leads back to itself.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

ListView {
    id: way

    required property var steps ///< texts

    signal chosen(int index)

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    implicitHeight: Theme.controlHeight
    model: steps
    orientation: ListView.Horizontal

    onCountChanged: positionViewAtEnd()

    delegate: RowLayout {
        id: step

        required property int index
        required property string modelData

        readonly property bool last: index === way.count - 1

        height: way.height
        spacing: 0

        Icon {
            color: Theme.textSecondary
            size: Theme.captionSize
            symbol: "chevron.compact.right"
            visible: step.index > 0
        }
        T.AbstractButton {
            id: button

            Layout.preferredHeight: Theme.iconButtonSize
            focusPolicy: Qt.StrongFocus
            implicitWidth: Math.min(implicitContentWidth, Theme.nameColumn) + leftPadding + rightPadding
            leftPadding: Theme.spaceS
            rightPadding: Theme.spaceS
            text: step.modelData

            Accessible.name: text
            Accessible.role: Accessible.Button
            Accessible.onPressAction: clicked()

            Keys.onReturnPressed: clicked()
            onClicked: way.chosen(step.index)

            background: Rectangle {
                color: button.hovered ? Theme.hover : "transparent"
                radius: Theme.radiusControl

                FocusRing {
                    anchors.margins: 0
                    shown: button.visualFocus
                }
            }
            contentItem: AppText {
                color: step.last ? Theme.text : Theme.textSecondary
                elide: Text.ElideMiddle
                font.weight: step.last ? Font.DemiBold : Font.Normal
                text: button.text
                Accessible.ignored: true
            }
        }
    }
}
