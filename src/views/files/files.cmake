brimlet_room(files
    LOGIC
        CsvExport.cpp
    SOURCES
        FileListModel.cpp
        FilterEditor.cpp
        KindTilesModel.cpp
    QML
        FilesTable FilterBar KindTile LargeFilesView TypesView)
