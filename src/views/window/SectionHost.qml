// Shows the screen of the chosen section. A new screen is one line in this table.
import QtQuick
import Brimlet
import Brimlet.App

FocusScope {
    id: host

    readonly property var screens: ({
        "smartClean": "SmartCleanView.qml",
        "overview": "OverviewView.qml",
        "explorer": "ExplorerView.qml",
        "types": "TypesView.qml",
        "large": "LargeFilesView.qml",
        "junk": "JunkView.qml",
        "history": "HistoryView.qml"
    })

    FadingLoader {
        source: Qt.resolvedUrl("../screens/" + (host.screens[App.section] ?? "ComingSection.qml"))
    }
}
