pragma ComponentBehavior: Bound

// Everything that Quick Clean checks, item by item.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Qt.labs.qmlmodels
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    readonly property bool empty: junk.isEmpty

    Component.onCompleted: {
        if (empty && !App.junk.loading)
            App.junk.load();
    }

    JunkModel {
        id: junk

        state: App
    }
    TablePage {
        anchors.fill: parent
        sideGap: 0
        spacing: 0
        topGap: 0

        PageHeader {
            Layout.fillWidth: true
            Layout.margins: Theme.spaceXl
            Layout.bottomMargin: Theme.spaceM
            subtitle: qsTr("Everything Quick Clean checks, item by item.")
            title: qsTr("Junk")

            AppButton {
                symbol: "arrow.clockwise"
                text: qsTr("Scan Again")
                onClicked: App.junk.load()
            }
        }
        SearchLine {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.spaceXl
            Layout.rightMargin: Theme.spaceXl
            running: App.junk.loading
            text: qsTr("Searching…")
        }
        ListView {
            id: list

            Layout.fillHeight: true
            Layout.fillWidth: true
            Layout.minimumHeight: Theme.tableMinimumHeight
            activeFocusOnTab: true
            bottomMargin: Theme.spaceXl
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            currentIndex: 1 // the first rule, under its heading
            focus: true
            highlightFollowsCurrentItem: false
            keyNavigationEnabled: false
            leftMargin: Theme.spaceXl
            model: junk
            reuseItems: true
            rightMargin: Theme.spaceXl
            visible: !view.empty

            readonly property real rowWidth: width - leftMargin - rightMargin

            Accessible.name: qsTr("Found junk")
            Accessible.role: Accessible.List

            Keys.onDownPressed: stopAt(junk.stopFrom(currentIndex + 1, 1))
            Keys.onLeftPressed: junk.setExpanded(currentIndex, Theme.mirrored)
            Keys.onReturnPressed: toggleExpanded()
            Keys.onRightPressed: junk.setExpanded(currentIndex, !Theme.mirrored)
            Keys.onSpacePressed: junk.toggleTick(currentIndex)
            Keys.onMenuPressed: openMenu(currentIndex)
            Keys.onUpPressed: stopAt(junk.stopFrom(currentIndex - 1, -1))
            Keys.onPressed: event => {
                event.accepted = true;
                if (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
                    openMenu(currentIndex);
                else if (event.key === Qt.Key_Home)
                    stopAt(junk.stopFrom(0, 1));
                else if (event.key === Qt.Key_End)
                    stopAt(junk.stopFrom(count - 1, -1));
                else
                    event.accepted = false;
            }

            T.ScrollBar.vertical: AppScrollBar {}

            function stopAt(row: int) {
                if (row < 0)
                    return;
                currentIndex = row;
                positionViewAtIndex(row, ListView.Contain);
            }

            function toggleExpanded() {
                junk.setExpanded(currentIndex, !(currentItem as JunkRuleRow)?.expanded);
            }

            function openMenu(row: int) {
                if (!(itemAtIndex(row) instanceof JunkItemRow))
                    return;
                currentIndex = row;
                menu.row = row;
                menu.popup(itemAtIndex(row), Theme.spaceXxl, Theme.rowHeight);
            }

            delegate: DelegateChooser {
                role: "kind"

                DelegateChoice {
                    roleValue: "group"

                    JunkGroupRow {
                        width: list.rowWidth
                    }
                }
                DelegateChoice {
                    roleValue: "rule"

                    JunkRuleRow {
                        focusShown: list.activeFocus && list.currentIndex === index
                        width: list.rowWidth
                        onOpened: open => { list.currentIndex = index; junk.setExpanded(index, open); }
                        onTicked: { list.currentIndex = index; junk.toggleTick(index); }
                    }
                }
                DelegateChoice {
                    roleValue: "item"

                    JunkItemRow {
                        focusShown: list.activeFocus && list.currentIndex === index
                        width: list.rowWidth
                        onMenuWanted: list.openMenu(index)
                        onTicked: { list.currentIndex = index; junk.toggleTick(index); }
                    }
                }
                DelegateChoice {
                    roleValue: "more"

                    AppText {
                        required property string title

                        color: Theme.textSecondary
                        height: Theme.rowHeight
                        leftPadding: Theme.mirrored ? 0 : Theme.junkIndent
                        rightPadding: Theme.mirrored ? Theme.junkIndent : 0
                        text: title
                        width: list.rowWidth
                    }
                }
            }
        }
        EmptyState {
            Layout.fillHeight: true
            Layout.fillWidth: true
            message: App.junk.loading ? qsTr("Searching…") : Words.nothingFound
            symbol: App.junk.loading ? "magnifyingglass" : "checkmark.shield.fill"
            visible: view.empty
        }
        SelectionBar {
            Layout.fillWidth: true
            actionTitle: qsTr("Clean…")
            count: junk.selectedCount
            size: junk.selectedSize
            table: list
            onActed: junk.clean()
            onCleared: junk.clearSelection()
        }
    }
    AppMenu {
        id: menu

        property int row: -1

        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

        AppMenuItem {
            text: Words.showInFileManager
            onTriggered: junk.reveal(menu.row)
        }
    }
}
