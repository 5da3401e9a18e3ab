// The column titles over the history, as wide as the columns of HistoryRow.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    spacing: Theme.spaceL

    AppText {
        Layout.leftMargin: Theme.spaceM
        Layout.preferredWidth: Theme.dateColumn
        kind: AppText.Caption
        text: qsTr("Date")
    }
    AppText {
        Layout.fillWidth: true
        kind: AppText.Caption
        text: qsTr("Item")
    }
    AppText {
        Layout.preferredWidth: Theme.sizeColumn
        horizontalAlignment: Text.AlignRight
        kind: AppText.Caption
        text: qsTr("Size")
    }
    AppText {
        Layout.preferredWidth: Theme.methodColumn
        kind: AppText.Caption
        text: qsTr("Method")
    }
    Item {
        Layout.preferredHeight: Theme.controlHeight
        Layout.preferredWidth: Theme.actionColumn
        Layout.rightMargin: Theme.spaceM
    }
}
