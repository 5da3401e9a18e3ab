brimlet_room(shared
    QML
        FullDiskAccessBanner ScanPrompt SelectionBar)
