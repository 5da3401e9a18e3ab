// A field to search by, with a button that empties it.
import QtQuick
import QtQuick.Templates as T
import Brimlet

T.TextField {
    id: control

    readonly property real symbolRoom: Theme.spaceS + Theme.iconSmall + Theme.spaceS
    readonly property real clearRoom: clear.visible ? clear.width + Theme.spaceXs : Theme.spaceS

    /// Holds the placeholder at its smallest.
    readonly property real leastWidth: Math.ceil(smallest.advanceWidth) + symbolRoom + Theme.spaceL

    signal edited

    color: Theme.text
    font.family: Theme.wordFamily
    font.pixelSize: Theme.bodySize
    implicitHeight: Theme.controlHeight
    implicitWidth: Theme.fieldWidth
    horizontalAlignment: TextInput.AlignLeft
    leftPadding: Theme.mirrored ? clearRoom : symbolRoom
    placeholderTextColor: Theme.textSecondary
    rightPadding: Theme.mirrored ? symbolRoom : clearRoom
    selectByMouse: true
    selectedTextColor: Theme.text
    selectionColor: Theme.selection
    verticalAlignment: TextInput.AlignVCenter

    Accessible.name: placeholderText
    Accessible.role: Accessible.EditableText
    Accessible.searchEdit: true

    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        clear.clicked();
    }
    onTextEdited: edited()

    background: Rectangle {
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.card
        radius: Theme.radiusControl

        FocusRing {
            shown: control.activeFocus
        }
    }

    TextMetrics {
        id: smallest

        font.family: Theme.wordFamily
        font.pixelSize: Theme.smallCaptionSize
        text: control.placeholderText
    }
    AppText {
        color: control.placeholderTextColor
        fontSizeMode: Text.HorizontalFit
        height: parent.height
        minimumPixelSize: Theme.smallCaptionSize
        text: control.placeholderText
        visible: control.text === "" && control.preeditText === ""
        width: parent.width - control.leftPadding - control.rightPadding
        x: control.leftPadding
        Accessible.ignored: true
    }
    Icon {
        anchors.left: parent.left
        anchors.leftMargin: Theme.spaceS
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.textSecondary
        size: Theme.iconSmall
        symbol: "magnifyingglass"
    }
    IconButton {
        id: clear

        anchors.right: parent.right
        anchors.rightMargin: Theme.spaceXs / 2
        anchors.verticalCenter: parent.verticalCenter
        focusPolicy: Qt.TabFocus
        symbol: "xmark.circle.fill"
        text: qsTr("Clear search")
        visible: control.text !== ""

        onClicked: {
            control.forceActiveFocus(); // the button goes
            control.clear();
            control.edited();
        }
    }
}
