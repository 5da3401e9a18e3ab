pragma ComponentBehavior: Bound

// What was found, with boxes; the button at the foot cleans what is ticked.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

FocusScope {
    id: stage

    readonly property SmartCleanModel model: SmartCleanModel { state: App }

    readonly property bool canClean: model.selectedSize > 0

    signal cleanWanted

    // The button is the default one: the Return key means it wherever no other button has the focus.
    Keys.onEnterPressed: cleanWanted()
    Keys.onReturnPressed: cleanWanted()

    onCleanWanted: {
        if (canClean)
            App.quickClean.startSmartClean();
    }

    ReviewModel {
        id: groups

        state: App
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        ColumnLayout {
            Layout.bottomMargin: Theme.spaceL
            Layout.fillWidth: true
            spacing: 0

            AppText {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                color: stage.canClean ? Theme.accentText : Theme.textSecondary
                figures: true
                kind: AppText.Display
                text: Formats.bytes(stage.model.selectedSize)
            }
            AppText {
                Layout.fillWidth: true
                color: Theme.textSecondary
                horizontalAlignment: Text.AlignHCenter
                text: qsTr("ready to clean")
            }
        }
        SectionPage {
            id: page

            Layout.fillHeight: true
            Layout.fillWidth: true
            focus: true
            visible: cards.count > 0

            Repeater {
                id: cards

                model: groups

                GroupCard {
                    required property string title

                    Layout.fillWidth: true
                    Layout.alignment: Qt.AlignHCenter
                    Layout.maximumWidth: Theme.stageMaximumWidth
                    group: title
                    selection: stage.model.selection
                }
            }
        }
        EmptyState {
            Layout.fillHeight: true
            Layout.fillWidth: true
            message: Words.nothingFound
            symbol: "checkmark.shield.fill"
            visible: cards.count === 0
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: Theme.hairline
            color: Theme.cardBorder
        }
        FittingRow {
            id: foot

            Layout.fillWidth: true
            Layout.leftMargin: Theme.spaceXl
            Layout.rightMargin: Theme.spaceXl
            Layout.topMargin: Theme.spaceM
            Layout.bottomMargin: Theme.spaceM
            room: stage.width - 2 * Theme.spaceXl

            RowLayout {
                spacing: Theme.spaceS

                AppButton {
                    text: qsTr("Start Over")
                    onClicked: App.quickClean.smartPhase = "idle"
                }
                AppButton {
                    text: qsTr("See Details")
                    onClicked: App.navigation.section = "junk"
                }
            }
            PrimaryButton {
                Layout.alignment: Qt.AlignRight
                Layout.fillWidth: foot.stacked
                enabled: stage.canClean
                large: true
                symbol: "sparkles"
                text: qsTr("Clean %1").arg(Formats.bytes(stage.model.selectedSize))
                onClicked: stage.cleanWanted()
            }
        }
    }
}
