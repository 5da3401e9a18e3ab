// One section in the sidebar.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Rectangle {
    id: row

    required property string sectionId
    required property string title
    required property string symbol
    property bool focusShown: false

    readonly property bool current: App.section === sectionId

    signal chosen

    color: current ? Theme.selection : pointer.hovered ? Theme.hover : "transparent"
    implicitHeight: Theme.rowHeight
    radius: Theme.radiusControl

    Accessible.name: title
    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: current
    Accessible.onPressAction: row.chosen()

    Behavior on color { ColorAnimation { duration: Theme.quick } }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceS
        anchors.rightMargin: Theme.spaceS
        spacing: Theme.spaceS

        Icon {
            color: Theme.accentText
            symbol: row.symbol
        }
        AppText {
            Layout.fillWidth: true
            kind: row.current ? AppText.Strong : AppText.Body
            text: row.title
            Accessible.ignored: true
        }
    }
    FocusRing {
        anchors.margins: 0
        shown: row.current && row.focusShown
    }
    HoverHandler {
        id: pointer
    }
    TapHandler {
        onTapped: row.chosen()
    }
}
