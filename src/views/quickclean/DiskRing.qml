// How full the disk is, as a ring that fills when it appears.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: ring

    required property real used  ///< bytes
    required property real total ///< bytes
    property real appear: Theme.animated ? 0 : 1

    readonly property real fraction: total > 0 ? Math.min(1, used / total) : 0

    implicitHeight: Theme.ringSize
    implicitWidth: Theme.ringSize

    Accessible.name: qsTr("%1 of the disk is in use").arg(percentage.text)
    Accessible.role: Accessible.Graphic

    NumberAnimation on appear {
        duration: Theme.settle
        easing.type: Easing.OutCubic
        running: Theme.animated
        to: 1
    }
    RingArc {
        anchors.fill: parent
        color: Theme.track
        endColor: Theme.track
        thickness: Theme.ringThickness
    }
    RingArc {
        anchors.fill: parent
        color: Theme.accent
        endColor: Theme.secondAccent
        span: ring.fraction * ring.appear
        thickness: Theme.ringThickness
        visible: span > 0
    }
    ColumnLayout {
        anchors.centerIn: parent
        spacing: 0

        AppText {
            id: percentage

            Layout.alignment: Qt.AlignHCenter
            figures: true
            kind: AppText.Display
            text: Formats.percent(ring.used, ring.total)
            Accessible.ignored: true
        }
        AppText {
            Layout.alignment: Qt.AlignHCenter
            color: Theme.textSecondary
            text: qsTr("used")
            Accessible.ignored: true
        }
    }
}
