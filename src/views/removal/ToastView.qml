// The notice after something was done. It goes by itself; Undo takes back what can be taken back.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Rectangle {
    id: notice

    required property real maximumWidth

    border.color: Theme.cardBorder
    border.width: Theme.hairline
    color: Theme.floating
    implicitHeight: row.implicitHeight + 2 * Theme.spaceM
    implicitWidth: Math.min(row.implicitWidth + 2 * Theme.spaceL, maximumWidth)
    opacity: model.shown ? 1 : 0
    radius: Theme.radiusCard
    visible: opacity > 0

    Accessible.description: model.detail
    Accessible.name: model.message
    Accessible.role: Accessible.AlertMessage

    Behavior on opacity { NumberAnimation { duration: Theme.gentle; easing.type: Easing.OutCubic } }

    transform: Translate {
        y: model.shown ? 0 : Theme.spaceL

        Behavior on y { NumberAnimation { duration: Theme.gentle; easing.type: Easing.OutCubic } }
    }

    ToastModel {
        id: model

        state: App
    }
    Connections {
        function onChanged() {
            if (model.shown)
                Assistive.show(notice);
        }

        target: model
    }
    SoftShadow {
        radius: Theme.radiusCard
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: Theme.hairline
        color: Theme.floating
        radius: Theme.radiusCard - Theme.hairline
    }
    // What lies under the notice is not meant by a click on it.
    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    RowLayout {
        id: row

        anchors.fill: parent
        anchors.bottomMargin: Theme.spaceM
        anchors.leftMargin: Theme.spaceL
        anchors.rightMargin: Theme.spaceL
        anchors.topMargin: Theme.spaceM
        spacing: Theme.spaceM

        Icon {
            color: Theme.safe
            size: Theme.iconLarge
            symbol: "checkmark.circle.fill"
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceXs / 2

            AppText {
                Layout.fillWidth: true
                kind: AppText.Strong
                lineHeight: 1
                text: model.message
                wrapMode: Text.Wrap
                Accessible.ignored: true
            }
            AppText {
                Layout.fillWidth: true
                kind: AppText.Caption
                lineHeight: 1
                text: model.detail
                wrapMode: Text.Wrap
                visible: model.detail !== ""
                Accessible.ignored: true
            }
        }
        AppButton {
            Layout.leftMargin: Theme.spaceS
            text: qsTr("Undo")
            visible: model.canUndo
            onClicked: model.undo()
        }
        IconButton {
            symbol: "xmark"
            text: qsTr("Close")
            onClicked: model.close()
        }
    }
}
