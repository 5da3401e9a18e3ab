// What can be done with the chosen nodes. All entries but the last act on the first of them.
import QtQuick
import QtQuick.Templates as T
import Brimlet

AppMenu {
    id: menu

    required property NodeActions actions
    property QuickPreview preview: null
    readonly property int nodeCount: actions.count

    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onNodeCountChanged: {
        if (nodeCount === 0)
            close();
    }

    AppMenuItem {
        enabled: visible
        height: visible ? implicitHeight : 0
        text: qsTr("Quick Look")
        visible: menu.preview !== null && menu.actions.canPreview
        onTriggered: menu.preview.showFirst(menu.actions)
    }
    AppMenuItem {
        text: Words.showInFileManager
        onTriggered: menu.actions.reveal()
    }
    AppMenuItem {
        text: qsTr("Open")
        onTriggered: menu.actions.open()
    }
    AppMenuItem {
        enabled: visible
        height: visible ? implicitHeight : 0
        text: qsTr("Open in Explorer")
        visible: menu.actions.isDirectory
        onTriggered: menu.actions.openInExplorer()
    }
    AppMenuItem {
        text: qsTr("Copy Path")
        onTriggered: menu.actions.copyPath()
    }
    AppMenuSeparator {}
    AppMenuItem {
        text: qsTr("Exclude from Scans")
        onTriggered: menu.actions.excludeFromScans()
    }
    AppMenuSeparator {}
    AppMenuItem {
        destructive: true
        text: menu.actions.deleteText
        onTriggered: menu.actions.remove()
    }
}
