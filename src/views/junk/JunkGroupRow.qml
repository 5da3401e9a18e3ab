// A heading of the junk list.
import QtQuick
import QtQuick.Layouts
import Brimlet

Item {
    id: row

    required property string title
    required property string symbol

    implicitHeight: Theme.tallRowHeight + Theme.spaceS

    Accessible.name: title
    Accessible.role: Accessible.Heading

    RowLayout {
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spaceS
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: Theme.spaceS

        Icon {
            color: Theme.accentText
            symbol: row.symbol
        }
        AppText {
            Layout.fillWidth: true
            kind: AppText.Heading
            text: row.title
            Accessible.ignored: true
        }
    }
}
