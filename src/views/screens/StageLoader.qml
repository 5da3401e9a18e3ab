// Holds one stage of Quick Clean while its phase is on.
import QtQuick
import Brimlet
import Brimlet.App

Loader {
    id: loader

    required property string phase

    active: App.smartPhase === phase
    anchors.fill: parent
    focus: active

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
