// Says that there is nothing here, and why.
import QtQuick
import QtQuick.Layouts
import Brimlet

Item {
    id: empty

    required property string symbol
    required property string message

    implicitHeight: column.implicitHeight

    ColumnLayout {
        id: column

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
    }
}
