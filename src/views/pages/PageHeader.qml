// The title of a screen, one line about it, and what stands at its far end.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: header

    required property string title
    property string subtitle
    default property alias trailing: end.data

    // The texts are no narrow column: what leaves them no room stands below.
    readonly property bool stacked: width > 0 && width - end.implicitWidth - spacing < 1.5 * Theme.nameColumn

    spacing: Theme.spaceL

    ColumnLayout {
        id: texts

        Layout.fillWidth: true
        spacing: Theme.spaceXs

        AppText {
            Layout.fillWidth: true
            kind: AppText.Title
            text: header.title
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            text: header.subtitle
            visible: header.subtitle !== ""
            wrapMode: Text.Wrap
        }
    }
    RowLayout {
        id: end

        Layout.fillWidth: false
        parent: header.stacked ? texts : header
        spacing: Theme.spaceS
        visible: children.length > 0
    }
}
