// The commands of the application's menus, with their shortcuts.
import QtQuick
import QtQuick.Controls
import Brimlet.App

Item {
    id: commands

    readonly property Action scanDisk: Action {
        shortcut: "Ctrl+R"
        text: qsTr("Scan Entire Disk")
        onTriggered: App.scan.scanWholeDisk()
    }
    readonly property Action scanHome: Action {
        shortcut: "Ctrl+Shift+R"
        text: qsTr("Scan Home Folder")
        onTriggered: App.scan.scanHome()
    }
    readonly property Action quickClean: Action {
        shortcut: "Ctrl+1"
        text: qsTr("Quick Clean")
        onTriggered: App.navigation.section = "smartClean"
    }
    readonly property Action settings: Action {
        shortcut: "Ctrl+,"
        text: qsTr("Settings…")
        onTriggered: commands.settingsWanted()
    }
    readonly property Action checkForUpdates: Action {
        text: qsTr("Check for Updates…")
        onTriggered: Updates.checkForUpdates()
    }
    readonly property Action quit: Action {
        text: qsTr("Quit Brimlet")
        // To quit closes no window, so nobody else asks whether something is at work.
        onTriggered: {
            if (App.readyToQuit())
                Qt.quit();
        }
    }

    signal settingsWanted

    // An action's own shortcut rests while a sheet is open.
    Shortcut {
        context: Qt.ApplicationShortcut
        sequence: "Ctrl+Q"
        onActivated: commands.quit.trigger()
    }
}
