// Edits a filter: search, least size, age, category, kinds, and what the filter leaves.
pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

ColumnLayout {
    id: bar

    required property FilterEditor filter
    required property int resultCount
    required property real resultSize ///< bytes
    property bool showKinds: true
    property bool showBucket: true
    property bool canExport: true

    signal exportWanted

    spacing: Theme.spaceS

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceS

        SearchField {
            Layout.fillWidth: true
            Layout.maximumWidth: 2 * Theme.fieldWidth
            Layout.minimumWidth: Theme.columnM
            placeholderText: qsTr("Search by name (use / to search paths)")
            text: bar.filter.query

            onEdited: bar.filter.query = text
        }
        Item {
            Layout.fillWidth: true
            Layout.maximumWidth: Theme.spaceXxl * 10
        }
        Picker {
            index: bar.filter.sizeIndex
            options: bar.filter.sizeOptions
            title: qsTr("Size")
            onChosen: index => bar.filter.sizeIndex = index
        }
        Picker {
            index: bar.filter.ageIndex
            options: bar.filter.ageOptions
            title: qsTr("Date")
            onChosen: index => bar.filter.ageIndex = index
        }
        Picker {
            index: bar.filter.bucketIndex
            options: bar.filter.bucketOptions
            title: qsTr("Category")
            visible: bar.showBucket
            onChosen: index => bar.filter.bucketIndex = index
        }
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceM

        ListView {
            id: chips

            Layout.fillWidth: true
            Layout.margins: -Theme.focusWidth
            Layout.preferredHeight: Theme.iconButtonSize + 2 * Theme.focusWidth
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            leftMargin: Theme.focusWidth
            model: bar.filter.kindChips.length
            orientation: ListView.Horizontal
            rightMargin: Theme.focusWidth
            spacing: Theme.spaceXs
            visible: bar.showKinds

            delegate: Chip {
                required property int index

                readonly property var kind: bar.filter.kindChips[index]

                checked: kind.active
                symbol: kind.symbol
                text: kind.title
                tint: kind.color
                y: Theme.focusWidth
                onActiveFocusChanged: {
                    if (activeFocus)
                        chips.positionViewAtIndex(index, ListView.Contain);
                }
                onClicked: bar.filter.toggleKind(index)
            }
        }
        Chip {
            checked: true
            focusPolicy: Qt.NoFocus
            removeText: qsTr("Search everywhere")
            symbol: "folder"
            text: bar.filter.pathPrefix
            visible: text !== ""
            onRemoved: bar.filter.clearPathPrefix()
        }
        Item {
            Layout.fillWidth: true
            visible: !bar.showKinds
        }
        AppText {
            color: Theme.textSecondary
            figures: true
            text: qsTr("%1 files · %2").arg(String(bar.resultCount)).arg(Formats.bytes(Math.max(0, bar.resultSize)))
        }
        AppButton {
            symbol: "square.and.arrow.up"
            text: qsTr("Export to CSV")
            visible: bar.canExport
            onClicked: bar.exportWanted()
        }
    }
}
