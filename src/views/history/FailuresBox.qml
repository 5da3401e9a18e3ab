pragma ComponentBehavior: Bound

// What could not be deleted in the last operation, and why.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

Card {
    id: box

    heading: qsTr("Couldn’t be deleted in the last operation")
    visible: failures.count > 0

    FailureModel {
        id: failures

        state: App
    }
    ListView {
        id: list

        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(contentHeight, Theme.tallRowHeight * 3.5)
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        model: failures
        highlightFollowsCurrentItem: false
        reuseItems: true

        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

        Accessible.name: box.heading
        Accessible.role: Accessible.List

        T.ScrollBar.vertical: AppScrollBar {}

        delegate: RowLayout {
            id: row

            required property string path
            required property string reason

            height: Math.max(Theme.tallRowHeight, texts.implicitHeight + Theme.spaceS)
            spacing: Theme.spaceM
            width: list.width

            Accessible.name: path
            Accessible.description: reason
            Accessible.focusable: true
            Accessible.role: Accessible.ListItem

            Icon {
                color: Theme.danger
                symbol: "xmark.octagon.fill"
            }
            ColumnLayout {
                id: texts

                Layout.fillWidth: true
                spacing: Theme.spaceXs / 2

                AppText {
                    Layout.fillWidth: true
                    elide: Text.ElideMiddle
                    text: row.path
                    Accessible.ignored: true
                }
                AppText {
                    Layout.fillWidth: true
                    kind: AppText.Caption
                    text: row.reason
                    wrapMode: Text.Wrap
                    Accessible.ignored: true
                }
            }
        }
    }
}
