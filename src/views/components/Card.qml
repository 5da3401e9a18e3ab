// A surface with a hairline border that groups what belongs together. Never a card in a card.
import QtQuick
import QtQuick.Layouts
import Brimlet

Rectangle {
    id: card

    property real padding: Theme.spaceL
    property string heading
    default property alias content: column.data

    border.color: Theme.cardBorder
    border.width: Theme.hairline
    color: Theme.card
    implicitHeight: column.implicitHeight + 2 * padding
    implicitWidth: column.implicitWidth + 2 * padding
    radius: Theme.radiusCard

    ColumnLayout {
        id: column

        anchors.fill: parent
        anchors.margins: card.padding
        spacing: Theme.spaceM

        AppText {
            Layout.fillWidth: true
            kind: AppText.Heading
            text: card.heading
            visible: card.heading !== ""
            wrapMode: Text.Wrap
        }
    }
}
