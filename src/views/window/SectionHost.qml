// Shows the screen of the chosen section. A new screen is one line in this table.
import QtQuick
import Brimlet
import Brimlet.App

FocusScope {
    id: host

    readonly property var screens: ({
        "smartClean": "SmartCleanView.qml",
        "overview": "OverviewView.qml",
        "junk": "JunkView.qml",
        "history": "HistoryView.qml"
    })

    Loader {
        id: loader

        anchors.fill: parent
        focus: true
        source: Qt.resolvedUrl("../screens/" + (host.screens[App.section] ?? "ComingSection.qml"))

        onLoaded: {
            if (Theme.animated)
                entering.restart();
        }

        NumberAnimation {
            id: entering

            duration: Theme.gentle
            easing.type: Easing.OutCubic
            from: 0
            property: "opacity"
            target: loader
            to: 1
        }
    }
}
