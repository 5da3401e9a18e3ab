// The application's menu: what concerns the program, and the Scan menu.
import QtQuick
import Brimlet

AppMenu {
    id: menu

    required property AppCommands commands

    AppMenuHeading {
        text: qsTr("Scan")
    }
    AppMenuItem {
        text: menu.commands.scanDisk.text
        shortcut: "Ctrl+R"
        onTriggered: menu.commands.scanDisk.trigger()
    }
    AppMenuItem {
        text: menu.commands.scanHome.text
        shortcut: "Ctrl+Shift+R"
        onTriggered: menu.commands.scanHome.trigger()
    }
    AppMenuItem {
        text: menu.commands.quickClean.text
        shortcut: "Ctrl+1"
        onTriggered: menu.commands.quickClean.trigger()
    }
    AppMenuSeparator {}
    AppMenuItem {
        text: menu.commands.settings.text
        shortcut: "Ctrl+,"
        onTriggered: menu.commands.settings.trigger()
    }
    AppMenuItem {
        text: menu.commands.checkForUpdates.text
        onTriggered: menu.commands.checkForUpdates.trigger()
    }
    AppMenuSeparator {}
    AppMenuItem {
        text: menu.commands.quit.text
        shortcut: "Ctrl+Q"
        onTriggered: menu.commands.quit.trigger()
    }
}
