// The Explorer's map with the label in its centre, and the panel beside it.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

RowLayout {
    id: pane

    required property ExplorerModel explorer

    spacing: Theme.spaceL

    Item {
        Layout.fillHeight: true
        Layout.fillWidth: true

        SunburstView {
            id: map

            // In a small map with large text its label shrinks; the panel beside it says the same.
            readonly property int leastLabelSize: 8

            anchors.fill: parent
            focus: true
            state: App
            zoomDuration: Theme.gentle

            Accessible.role: Accessible.Chart

            onUpWanted: pane.explorer.goUp()
        }
        Rectangle {
            anchors.centerIn: parent
            border.color: map.activeFocus ? Theme.accent : "transparent"
            border.width: Theme.focusWidth
            color: Theme.card
            height: 2 * map.ringWidth - 2 * Theme.spaceXs
            radius: height / 2
            width: height
        }
        ColumnLayout {
            anchors.centerIn: parent
            spacing: Theme.spaceXs / 2
            width: 2.1 * map.ringWidth

            AppText {
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                fontSizeMode: Text.HorizontalFit
                horizontalAlignment: Text.AlignHCenter
                kind: AppText.Heading
                minimumPixelSize: map.leastLabelSize
                text: map.title
            }
            AppText {
                Layout.fillWidth: true
                figures: true
                font.pixelSize: Theme.headingSize + Theme.spaceXs
                font.weight: Font.Bold
                fontSizeMode: Text.HorizontalFit
                horizontalAlignment: Text.AlignHCenter
                minimumPixelSize: map.leastLabelSize
                text: Formats.bytes(map.size)
            }
            RowLayout {
                Layout.alignment: Qt.AlignHCenter
                spacing: Theme.spaceXs
                visible: map.isHovering || map.canGoUp

                Icon {
                    color: Theme.textSecondary
                    size: Theme.captionSize
                    symbol: "arrow.up"
                    visible: !map.isHovering
                }
                AppText {
                    kind: AppText.Caption
                    text: map.isHovering ? map.share : qsTr("Up")
                }
            }
        }
    }
    MapSidePanel {
        Layout.bottomMargin: Theme.spaceXl
        Layout.fillHeight: true
        Layout.preferredWidth: Math.min(Theme.sidePanelWidth, Math.max(Theme.sidePanelLeast, pane.width * 0.42))
        map: map
    }
}
