brimlet_room(removal
    SOURCES
        PlanModel.cpp
        ToastModel.cpp
    QML
        ConfirmDeletionView PlanRow ToastView)
