brimlet_room(quickclean
    SOURCES
        ReviewModel.cpp
        SmartCleanModel.cpp
    QML
        DiskRing DoneStage GroupCard IdleStage Promise ReviewStage SmartCleanView StageLoader StepIndicator
        WorkingStage)
