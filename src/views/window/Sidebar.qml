pragma ComponentBehavior: Bound

// The sections in their groups, and the disk at the foot. One stop of the Tab key; the arrows choose.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

Rectangle {
    id: sidebar

    color: Theme.sidebar

    SidebarModel {
        id: sections
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ListView {
            id: list

            Layout.fillHeight: true
            Layout.fillWidth: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            currentIndex: sections.rowOf(App.navigation.section)
            focus: true
            highlightFollowsCurrentItem: false
            keyNavigationEnabled: false
            bottomMargin: Theme.spaceS
            leftMargin: Theme.spaceS
            model: sections
            rightMargin: Theme.spaceS

            T.ScrollBar.vertical: AppScrollBar {}

            Accessible.name: qsTr("Sections")
            Accessible.role: Accessible.List

            Keys.onDownPressed: choose(currentIndex + 1)
            Keys.onUpPressed: choose(currentIndex - 1)

            property bool byKeyboard: false

            onActiveFocusChanged: byKeyboard = false
            Keys.onPressed: byKeyboard = true

            function choose(row: int) {
                const section = sections.sectionAt(row);
                if (section !== "")
                    App.navigation.section = section;
            }

            delegate: SidebarRow {
                focusShown: list.activeFocus && list.byKeyboard
                width: list.width - 2 * Theme.spaceS

                onChosen: {
                    list.forceActiveFocus(Qt.MouseFocusReason);
                    App.navigation.section = sectionId;
                }
            }
        }
        DiskFooter {
            Layout.fillWidth: true
        }
    }
}
