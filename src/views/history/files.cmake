brimlet_room(history
    SOURCES
        FailureModel.cpp
        HistoryModel.cpp
    QML
        FailuresBox HistoryHeader HistoryRow HistoryView)
