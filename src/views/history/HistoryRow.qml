// One deleted item; its button puts it back where that can be done.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Rectangle {
    id: row

    required property int index
    required property string date
    required property string name
    required property string place
    required property real size
    required property string method
    required property bool restorable
    required property bool selected
    property bool focusShown: false

    signal chosen(int modifiers)
    signal restoreWanted

    color: selected ? Theme.selection : pointer.hovered ? Theme.hover : "transparent"
    implicitHeight: Theme.tallRowHeight
    radius: Theme.radiusControl

    Accessible.name: name + ", " + Formats.bytes(size) + ", " + method
    Accessible.description: date + ", " + place
    Accessible.focusable: true
    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.onPressAction: row.chosen(Qt.NoModifier)

    TapHandler {
        onTapped: point => row.chosen(point.modifiers)
    }
    HoverHandler {
        id: pointer
    }
    RowLayout {
        anchors.fill: parent
        spacing: Theme.spaceL

        AppText {
            Layout.leftMargin: Theme.spaceM
            Layout.preferredWidth: Theme.dateColumn
            color: Theme.textSecondary
            figures: true
            text: row.date
            Accessible.ignored: true
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceXs / 2

            AppText {
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                kind: AppText.Strong
                text: row.name
                Accessible.ignored: true
            }
            AppText {
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                kind: AppText.Caption
                text: row.place
                Accessible.ignored: true
            }
        }
        AppText {
            Layout.preferredWidth: Theme.sizeColumn
            figures: true
            horizontalAlignment: Text.AlignRight
            text: Formats.bytes(row.size)
            Accessible.ignored: true
        }
        AppText {
            Layout.preferredWidth: Theme.methodColumn
            color: Theme.textSecondary
            text: row.method
            Accessible.ignored: true
        }
        Item {
            Layout.preferredHeight: Theme.controlHeight
            Layout.preferredWidth: Theme.actionColumn
            Layout.rightMargin: Theme.spaceM

            AppButton {
                anchors.right: parent.right
                text: qsTr("Restore")
                visible: row.restorable
                onClicked: row.restoreWanted()
            }
        }
    }
    FocusRing {
        anchors.margins: 0
        radius: row.radius
        shown: row.focusShown
    }
}
