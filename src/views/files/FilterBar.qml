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

    Flow {
        id: conditions

        readonly property real pickersWidth: size.implicitWidth + age.implicitWidth + 2 * spacing
                                             + (category.visible ? category.implicitWidth + spacing : 0)
        readonly property real searchRoom: width - pickersWidth

        Layout.fillWidth: true
        spacing: Theme.spaceS

        SearchField {
            placeholderText: qsTr("Search by name (use / to search paths)")
            text: bar.filter.query
            width: conditions.searchRoom < leastWidth ? conditions.width : conditions.searchRoom

            onEdited: bar.filter.query = text
        }
        Picker {
            id: size

            index: bar.filter.sizeIndex
            options: bar.filter.sizeOptions
            title: qsTr("Size")
            onChosen: index => bar.filter.sizeIndex = index
        }
        Picker {
            id: age

            index: bar.filter.ageIndex
            options: bar.filter.ageOptions
            title: qsTr("Date")
            onChosen: index => bar.filter.ageIndex = index
        }
        Picker {
            id: category

            index: bar.filter.bucketIndex
            options: bar.filter.bucketOptions
            title: qsTr("Category")
            visible: bar.showBucket
            onChosen: index => bar.filter.bucketIndex = index
        }
    }
    GridLayout {
        Layout.fillWidth: true
        columnSpacing: Theme.spaceM
        columns: bar.width < result.oneLine + Theme.nameColumn ? 1 : 2
        rowSpacing: Theme.spaceS

        ListView {
            id: chips

            Layout.fillWidth: true
            Layout.margins: -Theme.focusWidth
            Layout.preferredHeight: Theme.iconButtonSize + 2 * Theme.focusWidth
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            leftMargin: Theme.focusWidth
            // Empty while hidden: destroying hidden delegates crashes the toolkit while a screen reader listens.
            model: bar.showKinds ? bar.filter.kindChips.length : 0
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
                onClicked: bar.filter.toggleKind(index)
            }
        }
        Flow {
            id: result

            readonly property real oneLine: Math.ceil(place.shownWidth + found.implicitWidth + spacing
                                                      + exportButton.shownWidth) + 1

            Layout.alignment: Qt.AlignRight
            Layout.fillWidth: true
            Layout.maximumWidth: oneLine
            spacing: Theme.spaceM

            Chip {
                id: place

                readonly property real shownWidth: visible ? implicitWidth + result.spacing : 0

                checked: true
                focusPolicy: Qt.NoFocus
                removeText: qsTr("Search everywhere")
                symbol: "folder"
                text: bar.filter.pathPrefix
                visible: text !== ""
                onRemoved: bar.filter.clearPathPrefix()
            }
            AppText {
                id: found

                color: Theme.textSecondary
                figures: true
                height: Theme.controlHeight
                text: qsTr("%1 files · %2").arg(String(bar.resultCount)).arg(Formats.bytes(Math.max(0, bar.resultSize)))
            }
            AppButton {
                id: exportButton

                readonly property real shownWidth: visible ? implicitWidth : 0

                symbol: "square.and.arrow.up"
                text: qsTr("Export to CSV")
                visible: bar.canExport
                onClicked: bar.exportWanted()
            }
        }
    }
}
