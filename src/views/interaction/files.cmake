brimlet_room(interaction
    SOURCES
        Assistive.cpp
        FocusInSight.cpp
        KeyGuard.cpp
        PressGuard.cpp
        TipFinder.cpp
    QML
        AppToolTip WindowTips)
