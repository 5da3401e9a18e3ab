brimlet_room(window
    SOURCES
        DiskSpace.cpp
        MainWindow.cpp
        SidebarModel.cpp
        WindowPanels.cpp
    QML
        AccessOnboardingView AppCommands ComingSection DiskFooter FinishingView Main MainMenu PanelHost
        ReplaceDialog RootView ScanToolbar SectionHost SettingsWindow Sidebar SidebarRow UpdateDialog)
