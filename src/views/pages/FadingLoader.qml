// Loads what it is told to and lets it fade in.
import QtQuick
import Brimlet

Loader {
    id: loader

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
