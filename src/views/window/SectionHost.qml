// Shows the screen of the chosen section. A new screen is one line in this table.
import QtQuick
import Brimlet
import Brimlet.App

FocusScope {
    id: host

    readonly property var screens: ({
        "smartClean": "quickclean/SmartCleanView.qml",
        "overview": "overview/OverviewView.qml",
        "explorer": "explorer/ExplorerView.qml",
        "types": "files/TypesView.qml",
        "large": "files/LargeFilesView.qml",
        "junk": "junk/JunkView.qml",
        "history": "history/HistoryView.qml"
    })

    FadingLoader {
        source: Qt.resolvedUrl("../" + (host.screens[App.navigation.section] ?? "window/ComingSection.qml"))
    }
}
