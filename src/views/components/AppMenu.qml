// A menu that drops from a button.
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Brimlet

T.Menu {
    id: control

    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: Math.max(Theme.sidebarWidth, contentItem.widest) + leftPadding + rightPadding
    margins: Theme.spaceS
    overlap: 1
    padding: Theme.spaceXs

    background: Rectangle {
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.floating
        radius: Theme.radiusControl + Theme.spaceXs

        SoftShadow {}
    }
    contentItem: ListView {
        property real widest: 0

        clip: true
        currentIndex: control.currentIndex
        implicitHeight: contentHeight
        interactive: contentHeight > height
        model: control.contentModel

        onContentHeightChanged: {
            let width = 0;
            for (let row = 0; row < control.count; ++row)
                width = Math.max(width, control.itemAt(row).implicitWidth);
            widest = width;
        }
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.quick }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Theme.quick }
    }
}
