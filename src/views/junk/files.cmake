brimlet_room(junk
    SOURCES
        JunkModel.cpp
    QML
        JunkGroupRow JunkItemRow JunkRuleRow JunkView)
