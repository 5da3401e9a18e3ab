pragma ComponentBehavior: Bound

// All that has been deleted, what could not be, and the way back.
import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

FocusScope {
    id: view

    readonly property bool windowActive: Window.active

    // The Trash may have been emptied meanwhile.
    onWindowActiveChanged: history.lookAgain()

    HistoryModel {
        id: history

        state: App
    }
    TablePage {
        anchors.fill: parent

        PageHeader {
            Layout.fillWidth: true
            subtitle: qsTr("Everything Brimlet has deleted. Anything still in the Trash can be restored to its original location.")
            title: qsTr("History")

            AppButton {
                enabled: history.count > 0
                symbol: "trash"
                text: qsTr("Clear History")
                onClicked: App.removal.clearHistory()
            }
        }
        FailuresBox {
            Layout.fillWidth: true
        }
        Item {
            Layout.fillHeight: true
            Layout.fillWidth: true
            Layout.minimumHeight: Theme.tableMinimumHeight
            visible: history.count > 0

            Sideways {
                id: sideways

                anchors.fill: parent
                contentWidth: Math.max(width, Theme.historyWidth)

                HistoryHeader {
                    id: titles

                    width: parent.width
                }
                ListView {
                    id: list

                    activeFocusOnTab: true
                    anchors.bottom: parent.bottom
                    anchors.bottomMargin: sideways.barHeight
                    anchors.top: titles.bottom
                    bottomMargin: Theme.spaceXl
                    boundsBehavior: Flickable.StopAtBounds
                    clip: true
                    focus: true
                    highlightFollowsCurrentItem: false
                    keyNavigationEnabled: false
                    model: history
                    reuseItems: true
                    width: parent.width

                    Accessible.name: qsTr("Deleted items")
                    Accessible.role: Accessible.List

                    Keys.onDownPressed: event => move(Math.min(count - 1, currentIndex + 1), event.modifiers)
                    Keys.onLeftPressed: sideways.scrollBy(-Theme.columnS)
                    Keys.onReturnPressed: history.restoreSelected()
                    Keys.onRightPressed: sideways.scrollBy(Theme.columnS)
                    Keys.onSpacePressed: event => history.select(currentIndex, event.modifiers & Qt.ControlModifier
                                                                 ? HistoryModel.Toggle : HistoryModel.Replace)
                    Keys.onUpPressed: event => move(Math.max(0, currentIndex - 1), event.modifiers)
                    Keys.onPressed: event => {
                        event.accepted = true;
                        if (event.matches(StandardKey.SelectAll))
                            history.selectAll();
                        else if (event.key === Qt.Key_Home)
                            move(0, event.modifiers);
                        else if (event.key === Qt.Key_End)
                            move(count - 1, event.modifiers);
                        else
                            event.accepted = false;
                    }

                    T.ScrollBar.vertical: bar

                    // With Control the keyboard moves on and leaves the selection as it is.
                    function move(row: int, modifiers: int) {
                        currentIndex = row;
                        positionViewAtIndex(row, ListView.Contain);
                        if (!(modifiers & Qt.ControlModifier))
                            history.select(row, modifiers & Qt.ShiftModifier ? HistoryModel.Extend : HistoryModel.Replace);
                    }

                    function choose(row: int, modifiers: int) {
                        forceActiveFocus(Qt.MouseFocusReason);
                        currentIndex = row;
                        history.select(row, modifiers & Qt.ShiftModifier ? HistoryModel.Extend
                                          : modifiers & Qt.ControlModifier ? HistoryModel.Toggle : HistoryModel.Replace);
                    }

                    delegate: HistoryRow {
                        focusShown: list.activeFocus && list.currentIndex === index
                        width: list.width
                        onChosen: modifiers => list.choose(index, modifiers)
                        onRestoreWanted: history.restore(index)
                    }
                }
            }
            AppScrollBar {
                id: bar

                anchors.bottom: parent.bottom
                anchors.right: parent.right
                anchors.top: parent.top
                orientation: Qt.Vertical
            }
        }
        EmptyState {
            Layout.fillHeight: true
            Layout.fillWidth: true
            message: qsTr("Nothing has been deleted yet.")
            symbol: "clock.arrow.circlepath"
            visible: history.count === 0
        }
    }
}
