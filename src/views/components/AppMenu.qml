// A menu that drops from a button, which opens and closes it by `toggle`; or one that pops up where it is asked for.
// It goes at once: while a popup fades, it takes presses that are meant for what lies behind it.
import QtQuick
import QtQuick.Templates as T
import QtQuick.Window
import Brimlet

T.Menu {
    id: control

    property real widest: 0

    // A press on the button is not one outside: it would close the menu and the click open it again.
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: Math.max(Theme.sidebarWidth, widest) + leftPadding + rightPadding
    margins: Theme.spaceS
    overlap: 1
    padding: Theme.spaceXs

    function toggle() {
        if (visible)
            close();
        else
            open();
    }

    onAboutToShow: {
        let width = 0;
        for (let row = 0; row < count; ++row)
            width = Math.max(width, itemAt(row).implicitWidth);
        widest = width;
    }

    background: Rectangle {
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.floating
        radius: Theme.radiusControl + Theme.spaceXs

        SoftShadow {}
    }
    contentItem: ListView {
        clip: true
        currentIndex: control.currentIndex
        implicitHeight: contentHeight
        interactive: contentHeight > height
        model: control.contentModel
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.quick }
    }
}
