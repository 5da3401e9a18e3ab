// The page's colour with a very soft breath of the two accents.
import QtQuick
import Brimlet

Rectangle {
    color: Theme.window

    Rectangle {
        anchors.fill: parent
        opacity: Theme.dark ? 0.10 : 0.08
        gradient: Gradient {
            orientation: Gradient.Vertical
            GradientStop { position: 0; color: Theme.accent }
            GradientStop { position: 0.45; color: "transparent" }
        }
    }
    Rectangle {
        anchors.fill: parent
        opacity: Theme.dark ? 0.06 : 0.07
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop { position: 0.5; color: "transparent" }
            GradientStop { position: 1; color: Theme.secondAccent }
        }
    }
}
