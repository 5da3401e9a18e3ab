// A kind or a category: its colour and its name.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: cell

    required property color dot
    required property string text

    spacing: Theme.smallDot

    LegendDot {
        color: cell.dot
        implicitHeight: Theme.smallDot
        implicitWidth: Theme.smallDot
    }
    AppText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        text: visible ? cell.text : ""
        Accessible.ignored: true
    }
}
