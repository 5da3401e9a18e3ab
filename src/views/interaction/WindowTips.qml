// The one tooltip of a window: what is shortened or has more to say, under the pointer or with the keyboard.
import QtQuick
import QtQuick.Templates as T
import Brimlet

TipFinder {
    id: finder

    AppToolTip {
        id: label

        readonly property real below: finder.place.y + finder.place.height + Theme.spaceXs

        closePolicy: T.Popup.NoAutoClose
        delay: 0
        text: finder.tip
        visible: finder.tip !== ""
        x: finder.place.x + (Math.min(finder.place.width, finder.width) - implicitWidth) / 2
        y: below + implicitHeight > finder.height ? finder.place.y - implicitHeight - Theme.spaceXs : below
    }
}
