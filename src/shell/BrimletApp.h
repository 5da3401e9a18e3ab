// What the operating system starts: owns the services of this system, the one AppState and the main window.
// Main thread; needs an application object.
#pragma once

#include "app/Appearance.h"
#include "app/AppState.h"
#include "app/UpdateController.h"
#include "junk/JunkFinder.h"
#include "platform/linux/FeedUpdateCheck.h"
#include "platform/linux/FilePreferencesStore.h"
#include "platform/linux/LinuxAccessProbe.h"
#include "platform/linux/LinuxBundleReader.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "platform/linux/LinuxFileRemoval.h"
#include "platform/linux/LinuxRecordStore.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/linux/LinuxSystemOpener.h"
#include "platform/linux/LinuxVolumes.h"
#include "platform/RecentRunningApplications.h"
#include "safety/DeletionExecutor.h"
#include "safety/DeletionHistory.h"
#include "safety/SafetyPolicy.h"
#include "views/MainWindow.h"
#include "views/WindowPanels.h"

#include <memory>
#include <optional>
#include <string>

namespace brimlet {

class BrimletApp {
public:
    /// Starts the update controller; everything else begins with the first use of it.
    /// homeFolder  absolute, without a trailing slash
    BrimletApp(std::string homeFolder, std::optional<ColorScheme> fixedColors);

    /// Created on first need, with all steps of its creation.
    AppState& state();

    Appearance& appearance() { return m_appearance; }

    /// Built on first need, not yet shown.
    MainWindow& window();

private:
    std::string m_homeFolder;
    LinuxSystemOpener m_opener;
    FeedUpdateCheck m_updateCheck;
    UpdateController m_updater;
    Appearance m_appearance;
    LinuxVolumes m_volumes;
    LinuxAccessProbe m_accessProbe;
    LinuxDirectoryLister m_lister;
    LinuxBundleReader m_bundles;
    LinuxRunningApplications m_running;
    FilePreferencesStore m_preferences;
    SystemStageClock m_clock;
    SafetyPolicy m_policy; ///< decides over every removal
    RecentRunningApplications m_recentlyRunning;
    SafetyPolicy m_shownPolicy; ///< for lists and plans, asked row by row
    JunkFinder m_junkFinder;
    FileSystemCalls m_calls;
    LinuxFileRemoval m_removal;
    LinuxRecordStore m_records;
    DeletionExecutor m_executor;
    DeletionHistory m_history;
    WindowPanels m_panels;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace brimlet
