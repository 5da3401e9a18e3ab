// A turning ring around what a running search has found so far, and where it is.
import QtQuick
import QtQuick.Layouts
import Brimlet

ColumnLayout {
    id: ring

    required property string progressText
    required property string detail

    spacing: Theme.spaceL

    TurningRing {
        Layout.alignment: Qt.AlignHCenter

        AppText {
            anchors.centerIn: parent
            figures: true
            horizontalAlignment: Text.AlignHCenter
            kind: AppText.Heading
            text: ring.progressText
            width: parent.width - 4 * Theme.ringThickness
            wrapMode: Text.Wrap
            Accessible.role: Accessible.ProgressBar
        }
    }
    AppText {
        Layout.fillWidth: true
        elide: Text.ElideMiddle
        horizontalAlignment: Text.AlignHCenter
        kind: AppText.Caption
        text: ring.detail === "" ? " " : ring.detail
    }
}
