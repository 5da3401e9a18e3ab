// The dialogs behind the panels that C++ asks for.
import QtQuick
import QtQuick.Dialogs
import Brimlet

Item {
    FolderDialog {
        id: folderDialog

        title: qsTr("Choose a Folder")

        onAccepted: WindowPanels.acceptFolder(selectedFolder)
        // A folder without folders in it has nothing to select, and can be meant all the same.
        onCurrentFolderChanged: selectedFolder = currentFolder
        onRejected: WindowPanels.reject()
    }
    FileDialog {
        id: saveDialog

        acceptLabel: qsTr("Save")
        fileMode: FileDialog.SaveFile
        // Asked below, whatever draws the panel.
        options: FileDialog.DontConfirmOverwrite // qmllint disable
        title: qsTr("Save")

        onAccepted: WindowPanels.acceptFile(selectedFile)
        onRejected: WindowPanels.reject()
    }
    ReplaceDialog {}
    Connections {
        target: WindowPanels

        function onFolderWanted(folder: url, prompt: string) {
            folderDialog.acceptLabel = prompt;
            folderDialog.currentFolder = folder;
            folderDialog.open();
        }

        function onFileToSaveWanted(suggestion: url, suffix: string) {
            saveDialog.defaultSuffix = suffix;
            saveDialog.nameFilters = [qsTr("%1 files (*.%2)").arg(suffix.toUpperCase()).arg(suffix)];
            saveDialog.selectedFile = suggestion;
            saveDialog.open();
        }
    }
}
