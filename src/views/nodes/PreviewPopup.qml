// The quick look at a file, over the window: its picture, its text, or what it is.
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brimlet

T.Popup {
    id: popup

    required property QuickPreview preview

    readonly property bool hasContent: preview.hasImage || preview.text !== ""

    closePolicy: T.Popup.NoAutoClose
    focus: false
    height: parent ? Math.round(hasContent ? parent.height * 0.72 : Math.min(implicitHeight, parent.height)) : 0
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: Theme.spaceXl
    parent: T.Overlay.overlay
    visible: preview.isOpen
    width: parent ? Math.round(Math.min(hasContent ? parent.width * 0.7 : Theme.sheetWidth, parent.width - 2 * Theme.spaceXl)) : 0
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((parent.height - height) / 2) : 0

    Shortcut {
        enabled: popup.preview.isOpen
        sequence: "Escape"
        onActivated: popup.preview.close()
    }

    background: Rectangle {
        border.color: Theme.cardBorder
        border.width: Theme.hairline
        color: Theme.floating
        radius: Theme.radiusCard

        SoftShadow {}
    }
    contentItem: ColumnLayout {
        spacing: Theme.spaceL

        Accessible.name: qsTr("Preview of %1").arg(popup.preview.name)
        Accessible.role: Accessible.Pane

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceM

            FileIcon {
                directory: popup.preview.directory
                path: popup.preview.path
                size: Theme.iconHuge
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: Theme.spaceXs

                AppText {
                    Layout.fillWidth: true
                    elide: Text.ElideMiddle
                    kind: AppText.Heading
                    text: popup.preview.name
                }
                AppText {
                    Layout.fillWidth: true
                    color: Theme.textSecondary
                    text: popup.preview.details
                }
                AppText {
                    Layout.fillWidth: true
                    elide: Text.ElideMiddle
                    kind: AppText.Caption
                    text: popup.preview.path
                }
            }
            IconButton {
                Layout.alignment: Qt.AlignTop
                symbol: "xmark"
                text: qsTr("Close")
                onClicked: popup.preview.close()
            }
        }
        PreviewImage {
            Layout.fillHeight: true
            Layout.fillWidth: true
            preview: popup.preview
            visible: popup.preview.hasImage
        }
        Flickable {
            Layout.fillHeight: true
            Layout.fillWidth: true
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            contentHeight: contentItem.childrenRect.height
            contentWidth: width
            visible: popup.preview.text !== ""

            T.ScrollBar.vertical: AppScrollBar {}

            AppText {
                font.family: Theme.codeFamily
                text: popup.preview.text
                verticalAlignment: Text.AlignTop
                width: parent.width
                wrapMode: Text.WrapAnywhere
            }
        }
        AppText {
            kind: AppText.Caption
            text: qsTr("Only the beginning is shown.")
            visible: popup.preview.text !== "" && popup.preview.cut
        }
    }
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.quick }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Theme.quick }
    }
}
