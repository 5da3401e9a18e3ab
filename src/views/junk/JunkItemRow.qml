// One item of an opened rule.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Rectangle {
    id: row

    required property int index
    required property string title
    required property string path
    required property bool directory
    required property real size
    required property int tick
    property bool focusShown: false

    readonly property string tip: path

    signal menuWanted
    signal ticked

    color: tick === 2 ? Theme.selection : pointer.hovered ? Theme.hover : "transparent"
    implicitHeight: Theme.rowHeight
    radius: Theme.radiusControl

    Accessible.name: title + ", " + Formats.bytes(size)
    Accessible.checkable: true
    Accessible.checked: tick === 2
    Accessible.description: path
    Accessible.focusable: true
    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: tick === 2
    Accessible.onPressAction: row.ticked()

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceXxl
        anchors.rightMargin: Theme.spaceL
        spacing: Theme.spaceM

        AppCheckBox {
            focusPolicy: Qt.NoFocus
            name: row.title
            tick: row.tick
            onClicked: row.ticked()
        }
        FileIcon {
            size: Theme.iconLarge
            directory: row.directory
            path: row.path
        }
        AppText {
            Layout.fillWidth: true
            elide: Text.ElideMiddle
            text: row.title
            Accessible.ignored: true
        }
        AppText {
            figures: true
            text: Formats.bytes(row.size)
            Accessible.ignored: true
        }
    }
    FocusRing {
        anchors.margins: 0
        radius: row.radius
        shown: row.focusShown
    }
    HoverHandler {
        id: pointer
    }
    TapHandler {
        onTapped: row.ticked()
    }
    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: row.menuWanted()
    }
}
