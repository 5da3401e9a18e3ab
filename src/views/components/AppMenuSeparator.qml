// A line between the groups of a menu.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.MenuSeparator {
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    padding: Theme.spaceXs

    contentItem: Rectangle {
        color: Theme.cardBorder
        implicitHeight: Theme.hairline
    }
}
