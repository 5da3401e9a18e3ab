// One section in the sidebar, under its group's heading where it is the first of its group.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: row

    required property string sectionId
    required property string title
    required property string symbol
    required property bool startsGroup
    required property string heading
    property bool focusShown: false

    readonly property bool current: App.navigation.section === sectionId

    signal chosen

    implicitHeight: groupSpace.height + face.height

    Item {
        id: groupSpace

        height: !row.startsGroup ? 0 : row.heading === "" ? Theme.spaceL
                                     : Theme.spaceL + groupName.implicitHeight + Theme.spaceXs
        width: row.width

        AppText {
            id: groupName

            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.spaceXs
            anchors.left: parent.left
            anchors.leftMargin: Theme.spaceS
            anchors.right: parent.right
            font.weight: Font.DemiBold
            kind: AppText.Caption
            text: row.heading
            visible: text !== ""
            Accessible.role: Accessible.Heading
        }
    }
    Rectangle {
        id: face

        anchors.top: groupSpace.bottom
        color: row.current ? Theme.selection : pointer.hovered ? Theme.hover : "transparent"
        focus: true
        height: Math.max(Theme.rowHeight, name.implicitHeight + Theme.spaceS)
        radius: Theme.radiusControl
        width: row.width

        Accessible.name: row.title
        Accessible.role: Accessible.ListItem
        Accessible.selectable: true
        Accessible.selected: row.current
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
                id: name

                Layout.fillWidth: true
                kind: row.current ? AppText.Strong : AppText.Body
                lineHeight: 1
                text: row.title
                wrapMode: Text.Wrap
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
}
