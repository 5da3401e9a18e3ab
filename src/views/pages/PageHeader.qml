// The title of a screen, one line about it, and what stands at its far end.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: header

    required property string title
    property string subtitle
    default property alias trailing: end.data

    spacing: Theme.spaceL

    ColumnLayout {
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

        spacing: Theme.spaceS
        visible: children.length > 0
    }
}
