pragma ComponentBehavior: Bound

// The one sheet through which every reviewed deletion passes.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

Sheet {
    id: sheet

    shown: App.removal.hasPlan
    title: plan.title

    onDefaultWanted: plan.cancel()
    onDismissed: plan.cancel()

    PlanModel {
        id: plan

        state: App
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceL

        Medallion {
            Layout.alignment: Qt.AlignTop
            round: true
            size: Theme.tallRowHeight
            symbol: "trash.circle.fill"
            symbolSize: Theme.iconLarge
            tint: Theme.danger
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceXs

            AppText {
                Layout.fillWidth: true
                kind: AppText.Title
                text: sheet.title
                Accessible.role: Accessible.Heading
            }
            AppText {
                Layout.fillWidth: true
                color: Theme.textSecondary
                text: plan.explanation
                wrapMode: Text.Wrap
            }
        }
    }
    AppText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        figures: true
        text: plan.checkingNote
        visible: text !== ""
    }
    Rectangle {
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(list.contentHeight + 2 * Theme.hairline, sheet.contentRoom,
                                         Math.max(Theme.sheetListHeight, sheet.roomHeight - Theme.sheetListHeight * 2))
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.window
        radius: Theme.radiusControl
        visible: plan.checkingNote === ""

        ListView {
            id: list

            activeFocusOnTab: true
            anchors.fill: parent
            anchors.margins: Theme.hairline
            boundsBehavior: Flickable.StopAtBounds
            cacheBuffer: 0 // nothing is still being built when the next plan comes
            clip: true
            highlightFollowsCurrentItem: false
            model: plan
            reuseItems: true

            Accessible.name: qsTr("Items of the plan")
            Accessible.role: Accessible.List

            Keys.onPressed: event => {
                const page = Math.max(1, Math.floor(height / Theme.planRowHeight) - 1);
                const wanted = {
                    [Qt.Key_PageDown]: currentIndex + page, [Qt.Key_PageUp]: currentIndex - page,
                    [Qt.Key_Home]: 0, [Qt.Key_End]: count - 1
                }[event.key];
                event.accepted = wanted !== undefined;
                if (event.accepted)
                    currentIndex = Math.max(0, Math.min(count - 1, wanted));
            }
            onActiveFocusChanged: {
                if (activeFocus && currentIndex < 0)
                    currentIndex = 0;
            }
            onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)

            T.ScrollBar.vertical: AppScrollBar {}

            delegate: PlanRow {
                required property int index

                focusShown: list.activeFocus && list.currentIndex === index
                width: list.width
            }
        }
    }
    AppCheckBox {
        Layout.fillWidth: true
        name: plan.reviewConsent.replace(/\*/g, "")
        text: plan.reviewConsent
        tick: plan.acceptedReview ? 2 : 0
        visible: plan.reviewConsent !== ""
        onClicked: plan.acceptedReview = !plan.acceptedReview
    }
    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.spaceS
        visible: plan.protectedNote !== ""

        Icon {
            Layout.leftMargin: (Theme.iconLarge - width) / 2
            Layout.rightMargin: (Theme.iconLarge - width) / 2
            color: Theme.danger
            symbol: "lock.fill"
        }
        AppText {
            Layout.fillWidth: true
            text: plan.protectedNote
            wrapMode: Text.Wrap
        }
    }
    buttons: [
        AppText {
            Layout.fillWidth: true
            Layout.rightMargin: Theme.spaceL
            figures: true
            kind: AppText.Heading
            text: qsTr("Total: %1").arg(Formats.bytes(plan.total))
        },
        DestructiveButton {
            confirming: true
            enabled: plan.canDelete
            text: plan.deleteLabel
            onClicked: plan.confirm()
        },
        AppButton {
            focus: true
            text: qsTr("Cancel")
            onClicked: plan.cancel()
        }
    ]
}
