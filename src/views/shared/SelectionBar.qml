// What is selected in a table, and what can be done with it.
import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Brimlet
import Brimlet.App

Rectangle {
    id: bar

    required property int count
    required property real size ///< bytes
    required property string actionTitle
    required property Item table ///< gets the keyboard back when the bar goes with it

    signal cleared
    signal acted

    color: Theme.card
    implicitHeight: Math.max(Theme.toolbarHeight, line.implicitHeight + 2 * Theme.spaceS)
    visible: count > 0

    onVisibleChanged: {
        if (!visible && table.visible && hasKeyboard())
            table.forceActiveFocus(Qt.OtherFocusReason);
    }

    // What goes with the bar may have lost it by now.
    function hasKeyboard(): bool {
        let item = Window.activeFocusItem;
        if (item === null || item === Window.contentItem)
            return true;
        for (; item !== null; item = item.parent) {
            if (item === bar)
                return true;
        }
        return false;
    }

    Rectangle {
        color: Theme.cardBorder
        height: Theme.hairline
        width: parent.width
    }
    FittingRow {
        id: line

        anchors.left: parent.left
        anchors.leftMargin: Theme.spaceXl
        anchors.right: parent.right
        anchors.rightMargin: Theme.spaceXl
        anchors.verticalCenter: parent.verticalCenter
        room: bar.width - 2 * Theme.spaceXl

        AppText {
            Layout.fillWidth: true
            figures: true
            kind: AppText.Strong
            text: qsTr("%1 selected · %2").arg(Formats.count(bar.count)).arg(Formats.bytes(bar.size))
        }
        RowLayout {
            Layout.alignment: Qt.AlignRight
            spacing: Theme.spaceS

            AppButton {
                text: qsTr("Deselect")
                onClicked: bar.cleared()
            }
            DestructiveButton {
                symbol: "trash"
                text: bar.actionTitle
                onClicked: bar.acted()
            }
        }
    }
}
