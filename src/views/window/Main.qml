// The application's window.
import QtQuick
import QtQuick.Controls
import Brimlet
import Brimlet.App

ApplicationWindow {
    id: window

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: Theme.mirrored

    color: Theme.window
    font.family: Theme.wordFamily
    font.pixelSize: Theme.bodySize
    height: 780
    minimumHeight: 600
    minimumWidth: 900
    title: "Brimlet"
    width: 1200

    onClosing: close => close.accepted = App.readyToQuit()

    // For the dialogs that the toolkit draws by itself.
    palette {
        window: Theme.floating
        windowText: Theme.text
        base: Theme.card
        alternateBase: Theme.window
        text: Theme.text
        button: Theme.card
        buttonText: Theme.text
        brightText: Theme.textOnAccent
        highlight: Theme.accent
        highlightedText: Theme.textOnAccent
        placeholderText: Theme.textSecondary
        light: Theme.hover
        mid: Theme.cardBorder
        midlight: Theme.track
        dark: Theme.textSecondary
        toolTipBase: Theme.floating
        toolTipText: Theme.text
        link: Theme.accentText
    }

    AppCommands {
        id: commands

        onSettingsWanted: settings.show()
    }
    RootView {
        anchors.fill: parent
        commands: commands
    }
    PanelHost {}
    SettingsWindow {
        id: settings
    }
}
