// Says that there is nothing here, and what can be done about it.
import QtQuick
import QtQuick.Layouts
import Brimlet

Item {
    id: empty

    required property string symbol
    required property string message
    default property alias action: actions.data

    ColumnLayout {
        anchors.centerIn: parent
        spacing: Theme.spaceL
        width: Math.min(parent.width - 2 * Theme.spaceXl, Theme.textMaximumWidth)

        Icon {
            Layout.alignment: Qt.AlignHCenter
            color: Theme.textSecondary
            opacity: Theme.faint
            size: Theme.medallion * 0.6
            symbol: empty.symbol
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            text: empty.message
            wrapMode: Text.Wrap
        }
        RowLayout {
            id: actions

            Layout.alignment: Qt.AlignHCenter
            visible: children.length > 0
        }
    }
}
