// A size in digits of equal width over a thin bar that shows its share.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

ColumnLayout {
    id: cell

    required property real size ///< bytes
    property real fraction: 0
    property alias color: bar.fillColor

    spacing: Theme.spaceXs

    AppText {
        Layout.alignment: Qt.AlignRight
        figures: true
        text: Formats.bytes(cell.size)
    }
    SizeBar {
        id: bar

        Layout.fillWidth: true
        fraction: cell.fraction
    }
}
