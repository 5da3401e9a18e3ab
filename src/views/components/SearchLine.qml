// A thin line that moves while something is searched for.
import QtQuick
import QtQuick.Layouts
import Brimlet

RowLayout {
    id: line

    required property string text
    required property bool running

    opacity: running ? 1 : 0
    spacing: Theme.spaceM

    Accessible.ignored: !running
    Accessible.name: text
    Accessible.role: Accessible.ProgressBar

    Rectangle {
        Layout.fillWidth: true
        Layout.preferredHeight: Theme.barThickness
        clip: true
        color: Theme.track
        radius: height / 2

        Rectangle {
            color: Theme.accent
            height: parent.height
            radius: height / 2
            width: parent.width * 0.25
            x: Theme.animated ? 0 : (parent.width - width) / 2

            XAnimator on x {
                duration: Theme.turn
                from: -line.width / 4
                loops: Animation.Infinite
                running: Theme.animated && line.running
                to: line.width
            }
        }
    }
    AppText {
        kind: AppText.Caption
        text: line.text
        Accessible.ignored: true
    }
}
