// Stands in for a section whose screen is not there yet.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    SidebarModel {
        id: sections
    }
    AmbientBackground {
        anchors.fill: parent
    }
    StagePage {
        anchors.fill: parent
        maximumWidth: Theme.textMaximumWidth
        spacing: Theme.spaceM

        Icon {
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: Theme.spaceS
            color: Theme.textSecondary
            opacity: Theme.faint
            size: Theme.medallion / 2
            symbol: sections.symbolOf(App.navigation.section)
        }
        AppText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            kind: AppText.Title
            text: sections.titleOf(App.navigation.section)
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }
        AppText {
            Layout.fillWidth: true
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("This screen comes with a later version of Brimlet.")
            wrapMode: Text.Wrap
        }
    }
}
