// The small text that explains what lies under the pointer.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.ToolTip {
    id: control

    delay: 600
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    implicitWidth: Math.min(contentItem.implicitWidth + leftPadding + rightPadding, Theme.textMaximumWidth)
    margins: Theme.spaceS
    padding: Theme.spaceS
    x: parent ? (parent.width - implicitWidth) / 2 : 0
    y: parent ? parent.height + Theme.spaceXs : 0

    background: Rectangle {
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.floating
        radius: Theme.radiusControl

        SoftShadow {}
    }
    contentItem: AppText {
        color: Theme.text
        kind: AppText.Caption
        text: control.visible ? control.text : "" // hundreds wait unseen in the rows of tables
        wrapMode: Text.Wrap
    }
}
