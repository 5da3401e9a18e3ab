// What a row is: its symbol, its name, and where it lies or that it could not be read.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: cell

    required property string name
    required property string folder ///< empty for one line only
    required property bool directory
    required property bool unreadable

    spacing: Theme.spaceS

    FileIcon {
        directory: cell.directory
        path: cell.name
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
        Accessible.name: Words.unreadableFolder
        Accessible.role: Accessible.Graphic
    }
}
