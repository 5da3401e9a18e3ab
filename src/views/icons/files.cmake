brimlet_room(icons
    SOURCES
        FileLooks.cpp
        IconProvider.cpp
    QML
        FileIcon Icon)
