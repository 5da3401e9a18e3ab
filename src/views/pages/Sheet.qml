// A sheet over the dimmed window: content that scrolls, buttons at its foot. `shown` opens and closes it;
// `dismissed` tells that the user wants it gone. It goes at once, so that no click is lost in its fading.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

T.Popup {
    id: sheet

    required property bool shown
    required property string title ///< for assistive tools
    default property alias content: body.data
    property alias buttons: foot.data

    signal dismissed
    signal defaultWanted ///< the Return key, where no button has the focus

    // Large text may have most of a low window.
    readonly property real roomHeight: !parent ? 0 : Math.max(parent.height * 0.8,
                                       Math.min(parent.height - 2 * Theme.spaceXl, Theme.sheetLowHeight))
    readonly property real contentRoom: roomHeight - foot.implicitHeight - column.spacing - topPadding - bottomPadding

    closePolicy: T.Popup.CloseOnEscape
    dim: true
    focus: true
    height: Math.min(implicitHeight, roomHeight)
    implicitHeight: column.implicitHeight + topPadding + bottomPadding
    modal: true
    padding: Theme.spaceXl
    parent: T.Overlay.overlay
    visible: shown
    width: parent ? Math.min(Theme.sheetWidth, parent.width - 2 * Theme.spaceXl) : Theme.sheetWidth
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0

    // Escape closes the popup by itself; the state that opened it has to follow.
    onClosed: {
        if (shown)
            dismissed();
    }

    T.Overlay.modal: Rectangle {
        color: Theme.dim

        Behavior on opacity { NumberAnimation { duration: Theme.gentle } }
    }
    background: Rectangle {
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.card
        radius: Theme.radiusCard

        SoftShadow {
            radius: Theme.radiusCard
        }
    }
    contentData: FocusScope {
        anchors.fill: parent
        focus: true

        Accessible.name: sheet.title
        Accessible.role: Accessible.Dialog

        // The keys that scroll mean the content from the buttons too.
        Keys.onPressed: event => area.scrollByKey(event)
        Keys.onEnterPressed: sheet.defaultWanted()
        Keys.onReturnPressed: sheet.defaultWanted()

        ColumnLayout {
            id: column

            anchors.fill: parent
            spacing: Theme.spaceXl

            ScrollArea {
                id: area

                Layout.fillHeight: true
                Layout.fillWidth: true
                contentHeight: body.implicitHeight
                implicitHeight: body.implicitHeight

                ColumnLayout {
                    id: body

                    spacing: Theme.spaceM
                    width: area.width
                }
            }
            FittingRow {
                id: foot

                Layout.alignment: Qt.AlignRight
                // Else the cells would share what is left over, and the last button not stand at the end.
                Layout.fillWidth: Array.from(children).some(one => one.Layout.fillWidth)
                Layout.maximumWidth: room
                columnSpacing: Theme.spaceS
                room: column.width
                visible: children.length > 0
            }
        }
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.gentle; easing.type: Easing.OutCubic }
        NumberAnimation { property: "scale"; from: 0.97; to: 1; duration: Theme.gentle; easing.type: Easing.OutCubic }
    }
}
