pragma ComponentBehavior: Bound

// The rules of one heading that found something, each with its box.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Card {
    id: card

    required property string symbol
    required property string group
    required property real total
    required property var findings  ///< list of ReviewRule
    required property var selection ///< ids of the ticked rules

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceM

        Medallion {
            ink: Theme.accentText
            symbol: card.symbol
        }
        AppText {
            Layout.fillWidth: true
            kind: AppText.Heading
            text: card.group
            Accessible.role: Accessible.Heading
        }
        AppText {
            figures: true
            kind: AppText.Heading
            text: Formats.bytes(card.total)
        }
    }
    ColumnLayout {
        Layout.fillWidth: true
        spacing: 0

        Repeater {
            model: card.findings

            Rectangle {
                id: row

                required property var modelData

                readonly property bool ticked: card.selection.includes(modelData.ruleId)

                Layout.fillWidth: true
                color: pointer.hovered ? Theme.hover : "transparent"
                implicitHeight: texts.implicitHeight + 2 * Theme.spaceS
                radius: Theme.radiusControl

                function toggle() {
                    App.quickClean.setRuleSelected(modelData.ruleId, !ticked);
                }

                HoverHandler {
                    id: pointer
                }
                TapHandler {
                    onTapped: row.toggle()
                }
                RowLayout {
                    anchors.fill: parent
                    anchors.leftMargin: Theme.spaceXs
                    anchors.rightMargin: Theme.spaceS
                    spacing: Theme.spaceM

                    AppCheckBox {
                        readonly property string tip: explanation.truncated ? explanation.text : ""

                        name: row.modelData.title
                        tick: row.ticked ? 2 : 0
                        Accessible.description: row.modelData.explanation
                        onClicked: row.toggle()
                    }
                    ColumnLayout {
                        id: texts

                        Layout.fillWidth: true
                        spacing: Theme.spaceXs / 2

                        AppText {
                            Layout.fillWidth: true
                            kind: AppText.Strong
                            lineHeight: 1
                            text: row.modelData.title
                            wrapMode: Text.Wrap
                        }
                        AppText {
                            id: explanation

                            Layout.fillWidth: true
                            elide: Text.ElideRight
                            kind: AppText.Caption
                            maximumLineCount: 2
                            text: row.modelData.explanation
                            wrapMode: Text.Wrap
                        }
                    }
                    AppText {
                        color: row.ticked ? Theme.text : Theme.textSecondary
                        figures: true
                        text: Formats.bytes(row.modelData.total)
                    }
                }
            }
        }
    }
}
