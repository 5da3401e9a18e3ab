// A part of the window that scrolls, by wheel, by bar and by keys. It is a stop of the Tab key only while there
// is more than fits; its bar then tells that it has the keyboard.
import QtQuick
import QtQuick.Templates as T
import Brimlet

Flickable {
    id: area

    /// Takes the keys that scroll; for what stands beside the area and passes its keys on.
    function scrollByKey(event: var) {
        const line = Theme.rowHeight;
        const page = Math.max(line, height - line);
        const distance = {
            [Qt.Key_Down]: line, [Qt.Key_Up]: -line, [Qt.Key_PageDown]: page, [Qt.Key_PageUp]: -page,
            [Qt.Key_Home]: -contentHeight, [Qt.Key_End]: contentHeight
        }[event.key];
        const wanted = Math.max(0, Math.min(contentHeight - height, contentY + (distance ?? 0)));
        event.accepted = wanted !== contentY;
        contentY = wanted;
    }

    activeFocusOnTab: contentHeight > height + 1
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentWidth: width

    Keys.onPressed: event => scrollByKey(event)

    T.ScrollBar.vertical: AppScrollBar {
        focused: area.activeFocus
    }
}
