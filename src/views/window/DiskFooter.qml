// How full the disk is, at the sidebar's foot. Empty while nothing is known.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: footer

    implicitHeight: space.known ? column.implicitHeight + 2 * Theme.spaceL : 0

    DiskSpace {
        id: space

        state: App
    }
    ColumnLayout {
        id: column

        anchors.left: parent.left
        anchors.margins: Theme.spaceL
        anchors.right: parent.right
        anchors.top: parent.top
        spacing: Theme.spaceS
        visible: space.known

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.spaceS

            Icon {
                color: Theme.textSecondary
                symbol: "internaldrive.fill"
            }
            AppText {
                Layout.fillWidth: true
                kind: AppText.Strong
                text: space.name
            }
        }
        SizeBar {
            Layout.fillWidth: true
            fillColor: space.low ? Theme.danger : Theme.accent
            fraction: space.usedFraction

            Accessible.ignored: false
            Accessible.name: qsTr("Disk usage")
            Accessible.role: Accessible.ProgressBar
        }
        AppText {
            Layout.fillWidth: true
            kind: AppText.Caption
            text: qsTr("%1 free").arg(Formats.bytes(space.free))
        }
    }
}
