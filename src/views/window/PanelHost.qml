// The dialogs behind the panels that C++ asks for.
import QtQuick
import QtQuick.Dialogs
import Brimlet

Item {
    FolderDialog {
        id: folderDialog

        title: qsTr("Choose a Folder")

        onAccepted: WindowPanels.accept(selectedFolder)
        onRejected: WindowPanels.reject()
    }
    FileDialog {
        id: saveDialog

        fileMode: FileDialog.SaveFile
        title: qsTr("Save")

        onAccepted: WindowPanels.accept(selectedFile)
        onRejected: WindowPanels.reject()
    }
    Connections {
        target: WindowPanels

        function onFolderWanted(prompt: string) {
            folderDialog.acceptLabel = prompt;
            folderDialog.open();
        }

        function onFileToSaveWanted(suggestedName: string) {
            saveDialog.selectedFile = saveDialog.currentFolder + "/" + encodeURIComponent(suggestedName);
            saveDialog.open();
        }
    }
}
