brimlet_room(map
    LOGIC
        SunburstArcs.cpp
        SunburstRaster.cpp
    SOURCES
        NodeCard.cpp
        SunburstAccessible.cpp
        SunburstView.cpp
    QML
        MapPane MapSidePanel)
