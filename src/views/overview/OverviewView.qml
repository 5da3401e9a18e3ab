// The first figures of the finished scan: how much, how many, how long, and what it is made of.
import QtQuick
import QtQuick.Layouts
import Brimlet
import Brimlet.App

Item {
    id: view

    ScanSummary {
        id: summary

        state: App
    }
    ScanPrompt {
        anchors.fill: parent
        message: Words.scanPromptOfOverview
        title: qsTr("See where your space goes")
        visible: !App.scan.hasScan
    }
    SectionPage {
        anchors.fill: parent
        visible: App.scan.hasScan

        PageHeader {
            Layout.fillWidth: true
            subtitle: summary.place
            title: qsTr("Overview")
        }
        FullDiskAccessBanner {
            Layout.fillWidth: true
            visible: !App.access.hasFullDiskAccess
        }
        GridLayout {
            Layout.fillWidth: true
            columnSpacing: Theme.spaceL
            columns: view.width < Theme.scaled(760) ? 2 : 4
            rowSpacing: Theme.spaceL

            StatTile {
                Layout.fillHeight: true
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                symbol: "internaldrive.fill"
                title: qsTr("Total")
                value: Formats.bytes(summary.total)
            }
            StatTile {
                Layout.fillHeight: true
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                symbol: "doc.on.doc.fill"
                tint: Theme.secondAccent
                title: qsTr("Files")
                value: Formats.count(summary.files)
            }
            StatTile {
                Layout.fillHeight: true
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                caption: summary.unreadable > 0
                         ? qsTr("%1 could not be read").arg(Formats.count(summary.unreadable)) : ""
                symbol: "folder.fill"
                tint: Theme.review
                title: qsTr("Folders")
                value: Formats.count(summary.folders)
            }
            StatTile {
                Layout.fillHeight: true
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                symbol: "clock.arrow.circlepath"
                tint: Theme.safe
                title: qsTr("Scan time")
                value: Formats.duration(summary.seconds)
            }
        }
        CompositionCard {
            Layout.fillWidth: true
            segments: summary.buckets
            total: summary.total
        }
    }
}
