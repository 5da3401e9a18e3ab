// The colour of a legend's row.
import QtQuick
import Brimlet

Rectangle {
    implicitHeight: Theme.dot
    implicitWidth: Theme.dot
    radius: width / 2
}
