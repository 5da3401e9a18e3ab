pragma ComponentBehavior: Bound

// Explains Full Disk Access before the first scan that needs it.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Sheet {
    id: sheet

    // The stars of the texts mark the bold words.
    readonly property var steps: [
        qsTr("Click “Open Settings”."),
        qsTr("Under “Full Disk Access”, turn on **Brimlet** (or add it with +)."),
        Words.accessRestart
    ]

    shown: App.access.showAccessOnboarding
    title: qsTr("Let Brimlet see your whole disk")

    onDismissed: App.access.closeAccessOnboarding()

    Medallion {
        Layout.alignment: Qt.AlignHCenter
        round: true
        size: Theme.medallion
        symbol: "externaldrive.fill.badge.checkmark"
        symbolSize: Theme.iconHuge
    }
    AppText {
        Layout.fillWidth: true
        Layout.topMargin: Theme.spaceS
        horizontalAlignment: Text.AlignHCenter
        kind: AppText.Title
        text: sheet.title
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }
    AppText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
        text: Words.accessReason
        wrapMode: Text.Wrap
    }
    Repeater {
        model: sheet.steps

        RowLayout {
            id: step

            required property int index
            required property string modelData

            Layout.fillWidth: true
            Layout.topMargin: index === 0 ? Theme.spaceS : 0
            spacing: Theme.spaceM

            Rectangle {
                Layout.alignment: Qt.AlignTop
                Layout.preferredHeight: Theme.iconLarge
                Layout.preferredWidth: Theme.iconLarge
                color: Theme.selection
                radius: width / 2

                AppText {
                    anchors.centerIn: parent
                    color: Theme.accentText
                    figures: true
                    kind: AppText.Strong
                    text: step.index + 1
                    Accessible.ignored: true
                }
            }
            AppText {
                Layout.fillWidth: true
                text: step.modelData.replace(/\*\*(.+?)\*\*/g, "<b>$1</b>")
                textFormat: Text.StyledText
                wrapMode: Text.Wrap
                Accessible.name: step.modelData.replace(/\*\*/g, "")
            }
        }
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: Theme.spaceS
        spacing: Theme.spaceM

        Icon {
            Layout.leftMargin: (Theme.iconLarge - width) / 2
            Layout.rightMargin: (Theme.iconLarge - width) / 2
            color: Theme.safe
            symbol: "lock.shield.fill"
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            text: Words.onlyNamesAndSizes
            wrapMode: Text.Wrap
        }
    }
    buttons: [
        AppButton {
            text: qsTr("Scan Without Access")
            onClicked: App.access.scanWithoutAccess()
        },
        PrimaryButton {
            focus: true
            text: qsTr("Open Settings")
            onClicked: App.access.openFullDiskAccessSettings()
        }
    ]
}
