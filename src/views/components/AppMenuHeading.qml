// The name of a group of a menu's entries.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.MenuItem {
    id: control

    enabled: false
    implicitHeight: Theme.controlHeight
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: Theme.spaceM
    rightPadding: Theme.spaceM

    Accessible.name: text
    Accessible.role: Accessible.Heading

    contentItem: AppText {
        font.weight: Font.DemiBold
        kind: AppText.Caption
        text: control.text
        Accessible.ignored: true
    }
}
