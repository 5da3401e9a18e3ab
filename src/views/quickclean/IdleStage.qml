// The first thing a user sees: how full the disk is, and one button.
import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Brimlet
import Brimlet.App

StagePage {
    id: stage

    readonly property SmartCleanModel model: SmartCleanModel { state: App }
    property real pulse

    // Some breaths each time that someone comes to look; then the screen rests.
    SequentialAnimation on pulse {
        objectName: "breathing"
        loops: 3
        running: Theme.animated && stage.visible && stage.Window.active

        NumberAnimation { duration: Theme.breath; easing.type: Easing.InOutSine; from: 0; to: 1 }
        NumberAnimation { duration: Theme.breath; easing.type: Easing.InOutSine; from: 1; to: 0 }
    }
    AppText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        kind: AppText.Display
        text: qsTr("Free up space safely")
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    Item {
        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: Theme.spaceS
        Layout.topMargin: Theme.spaceM
        implicitHeight: disk.implicitHeight
        implicitWidth: disk.implicitWidth
        visible: stage.model.volumeKnown

        Rectangle {
            anchors.centerIn: parent
            border.color: Theme.accent
            border.width: Theme.hairline
            color: Theme.withAlpha(Theme.accent, Theme.tint / 2)
            height: width
            opacity: Theme.animated ? 0.25 + 0.35 * stage.pulse : 0.4
            radius: width / 2
            width: parent.width + Theme.spaceXxl + Theme.spaceS * stage.pulse
        }
        Rectangle {
            anchors.fill: parent
            color: Theme.card
            radius: width / 2
        }
        DiskRing {
            id: disk

            total: stage.model.total
            used: stage.model.used
        }
    }
    AppText {
        Layout.alignment: Qt.AlignHCenter
        Layout.maximumWidth: Theme.textMaximumWidth
        Layout.fillWidth: true
        Layout.topMargin: Theme.spaceS
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
        text: stage.model.freeSpaceSentence
        visible: text !== ""
        wrapMode: Text.Wrap
    }
    PrimaryButton {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredWidth: Theme.sidebarWidth
        focus: true
        large: true
        symbol: "wand.and.stars"
        text: qsTr("Scan")
        onClicked: stage.model.startScan()
    }
    Card {
        Layout.alignment: Qt.AlignHCenter
        Layout.fillWidth: true
        Layout.topMargin: Theme.spaceS

        GridLayout {
            Layout.fillWidth: true
            columnSpacing: Theme.spaceXl
            columns: stage.width > Theme.stageMaximumWidth ? 3 : 1
            rowSpacing: Theme.spaceS

            Promise {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                symbol: "checkmark.shield.fill"
                tint: Theme.safe
                title: qsTr("Never touches the system")
            }
            Promise {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                symbol: "arrow.uturn.backward.circle.fill"
                tint: Theme.accent
                title: qsTr("You review before anything is cleaned")
            }
            Promise {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                symbol: "lock.fill"
                tint: Theme.secondAccent
                title: Words.staysHere
            }
        }
    }
}
