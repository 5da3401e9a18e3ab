// What is selected in a table, and what can be done with it.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Rectangle {
    id: bar

    required property int count
    required property real size ///< bytes
    required property string actionTitle

    signal cleared
    signal acted

    color: Theme.card
    implicitHeight: Theme.toolbarHeight
    visible: count > 0

    Rectangle {
        color: Theme.cardBorder
        height: Theme.hairline
        width: parent.width
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.spaceXl
        anchors.rightMargin: Theme.spaceXl
        spacing: Theme.spaceS

        AppText {
            Layout.fillWidth: true
            figures: true
            kind: AppText.Strong
            text: qsTr("%1 selected · %2").arg(Formats.count(bar.count)).arg(Formats.bytes(bar.size))
        }
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
