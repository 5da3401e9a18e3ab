brimlet_room(overview
    SOURCES
        ScanSummary.cpp
    QML
        CompositionCard OverviewView)
