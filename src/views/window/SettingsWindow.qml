// The settings, in a window of their own.
import QtQuick
import QtQuick.Controls
import Brimlet

ApplicationWindow {
    id: settings

    LayoutMirroring.childrenInherit: true
    LayoutMirroring.enabled: Theme.mirrored

    color: Theme.window
    height: 440
    title: qsTr("Settings")
    visible: false
    width: 560

    AppText {
        anchors.centerIn: parent
        color: Theme.textSecondary
        horizontalAlignment: Text.AlignHCenter
        text: qsTr("Settings come with a later version.")
        width: parent.width - 2 * Theme.spaceXl
        wrapMode: Text.Wrap
    }
    Shortcut {
        sequences: ["Ctrl+W", "Escape"]
        onActivated: settings.close()
    }
}
