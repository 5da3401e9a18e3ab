// What a row is: its symbol, its name, and where it lies or that it could not be read.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: cell

    required property string name
    required property string folder ///< empty for one line only
    required property string path
    required property bool directory
    required property bool unreadable

    spacing: Theme.spaceS

    FileIcon {
        directory: cell.directory
        path: cell.path
        size: Theme.fileIcon
    }
    ColumnLayout {
        spacing: 0

        AppText {
            Layout.fillWidth: true
            elide: Text.ElideMiddle
            text: cell.name
            Accessible.ignored: true
        }
        AppText {
            Layout.fillWidth: true
            elide: Text.ElideMiddle
            kind: AppText.Caption
            text: cell.folder
            visible: text !== ""
            Accessible.ignored: true
        }
    }
    Icon {
        color: Theme.review
        size: Theme.iconSmall
        symbol: "lock.fill"
        visible: cell.unreadable

        Accessible.ignored: false
        Accessible.name: lockTip.text
        Accessible.role: Accessible.Graphic

        HoverHandler {
            id: lockHover
        }
        AppToolTip {
            id: lockTip

            text: qsTr("No permission to read. Grant Full Disk Access.")
            visible: lockHover.hovered
        }
    }
    HoverHandler {
        id: nameHover
    }
    AppToolTip {
        text: cell.path
        visible: nameHover.hovered && !lockHover.hovered
    }
}
