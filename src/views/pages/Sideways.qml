// Lets a table be wider than its place: a bar below, a wheel that turns sideways or with Shift, and `scrollBy` for
// the arrow keys. In languages written from the right it begins at the right.
import QtQuick
import QtQuick.Templates as T
import Brimlet

Flickable {
    id: view

    default property alias content: surface.data
    readonly property real barHeight: bar.visible ? bar.height : 0
    readonly property bool mirrored: Theme.mirrored

    function scrollBy(distance: real) {
        contentX = Math.max(0, Math.min(contentWidth - width, contentX + distance));
    }
    function toBeginning() {
        contentX = mirrored ? contentWidth - width : 0;
    }

    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: height
    interactive: false

    onContentWidthChanged: settling.running = mirrored
    onMirroredChanged: settling.start()
    onWidthChanged: settling.running = mirrored

    // Widths change one by one.
    Timer {
        id: settling

        interval: 0
        onTriggered: view.toBeginning()
    }

    T.ScrollBar.horizontal: AppScrollBar {
        id: bar
    }

    Item {
        id: surface

        height: view.height
        width: view.contentWidth
    }
    // Over the table, which would take the wheel for itself.
    Item {
        height: view.height
        width: view.contentWidth

        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedModifiers: Qt.ShiftModifier
            target: null
            onWheel: event => view.scrollBy(-(event.angleDelta.y !== 0 ? event.angleDelta.y : event.angleDelta.x))
        }
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            acceptedModifiers: Qt.NoModifier
            blocking: false
            orientation: Qt.Horizontal
            target: null
            onWheel: event => view.scrollBy(-event.angleDelta.x)
        }
    }
}
