brimlet_room(base
    LOGIC
        LocaleFold.cpp
    SOURCES
        AppStateListModel.h
        AppStateReader.h
        Words.cpp)
