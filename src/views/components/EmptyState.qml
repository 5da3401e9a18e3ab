// What stands in the place of an empty list.
import QtQuick
import QtQuick.Layouts
import Brimlet

Item {
    id: state

    required property string symbol
    required property string text

    ColumnLayout {
        anchors.centerIn: parent
        spacing: Theme.spaceM
        width: Math.min(parent.width - 2 * Theme.spaceXl, Theme.textMaximumWidth)

        Icon {
            Layout.alignment: Qt.AlignHCenter
            color: Theme.textSecondary
            opacity: Theme.faint
            size: Theme.iconHuge
            symbol: state.symbol
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            text: state.text
            wrapMode: Text.Wrap
        }
    }
}
