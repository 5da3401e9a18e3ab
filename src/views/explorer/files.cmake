brimlet_room(explorer
    SOURCES
        ExplorerModel.cpp
        FolderModel.cpp
    QML
        Breadcrumbs ExplorerView FolderList)
