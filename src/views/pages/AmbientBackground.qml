// The page's colour with a very soft breath of the two accents.
import QtQuick
import Brimlet

Rectangle {
    color: Theme.window

    gradient: Gradient {
        GradientStop { position: 0; color: Qt.tint(Theme.window, Theme.withAlpha(Theme.accent, Theme.ambient)) }
        GradientStop { position: 0.6; color: Theme.window }
        GradientStop { position: 1; color: Qt.tint(Theme.window, Theme.withAlpha(Theme.secondAccent, Theme.ambient)) }
    }
}
