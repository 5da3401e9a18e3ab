brimlet_room(nodes
    LOGIC
        NodeColumns.cpp
        NodePlans.cpp
        PreviewContent.cpp
        RowSelection.cpp
        RowWorker.cpp
    SOURCES
        NodeActions.cpp
        NodeLook.cpp
        NodeTableModel.cpp
        PreviewImage.cpp
        QuickPreview.cpp
        RowWindow.cpp
    QML
        DotCell NameCell NodeContextMenu NodeRow NodeTable PreviewPopup TableHeader TableRows)
