pragma ComponentBehavior: Bound

// The one sheet through which every reviewed deletion passes.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet
import Brimlet.App

Sheet {
    id: sheet

    shown: App.hasPlan
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

        Rectangle {
            Layout.alignment: Qt.AlignTop
            Layout.preferredHeight: Theme.tallRowHeight
            Layout.preferredWidth: Theme.tallRowHeight
            color: Theme.withAlpha(Theme.danger, Theme.tint)
            radius: width / 2

            Icon {
                anchors.centerIn: parent
                color: Theme.danger
                size: Theme.iconLarge
                symbol: "trash.circle.fill"
            }
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
    Rectangle {
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(list.contentHeight + 2 * Theme.hairline,
                                         Math.max(Theme.sheetListHeight, sheet.roomHeight - Theme.sheetListHeight * 2))
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.window
        radius: Theme.radiusControl

        ListView {
            id: list

            activeFocusOnTab: true
            anchors.fill: parent
            anchors.margins: Theme.hairline
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            keyNavigationEnabled: false
            model: plan
            reuseItems: true

            Accessible.name: qsTr("Items of the plan")
            Accessible.role: Accessible.List

            Keys.onDownPressed: scrollBy(Theme.tallRowHeight)
            Keys.onUpPressed: scrollBy(-Theme.tallRowHeight)
            Keys.onPressed: event => {
                if (event.key === Qt.Key_PageDown || event.key === Qt.Key_PageUp) {
                    scrollBy(event.key === Qt.Key_PageDown ? height : -height);
                    event.accepted = true;
                }
            }

            T.ScrollBar.vertical: AppScrollBar {}

            function scrollBy(distance: real) {
                contentY = Math.max(originY, Math.min(originY + contentHeight - height, contentY + distance));
            }

            delegate: PlanRow {
                width: list.width
            }
            FocusRing {
                shown: list.activeFocus
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
