// What the operating system starts: owns the services of this system, the one AppState and the main window.
// Main thread; needs an application object.
#pragma once

#include "app/Appearance.h"
#include "app/background/StageClock.h"
#include "app/state/AppState.h"
#include "app/state/BackgroundServices.h"
#include "app/UpdateController.h"
#include "junk/JunkFinder.h"
#include "platform/linux/FeedUpdateCheck.h"
#include "platform/linux/FilePreferencesStore.h"
#include "platform/linux/LinuxAccessProbe.h"
#include "platform/linux/LinuxBundleReader.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/LinuxRunningApplications.h"
#include "platform/linux/LinuxSystemOpener.h"
#include "platform/linux/LinuxVolumes.h"
#include "platform/linux/removal/LinuxFileRemoval.h"
#include "platform/linux/removal/LinuxRecordStore.h"
#include "platform/RecentRunningApplications.h"
#include "safety/DeletionExecutor.h"
#include "safety/history/DeletionHistory.h"
#include "safety/ItemReview.h"
#include "safety/JournalRecovery.h"
#include "safety/SafetyPolicy.h"
#include "tables/SystemTables.h"
#include "views/window/MainWindow.h"
#include "views/window/WindowPanels.h"

#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace brimlet {

class BrimletApp {
public:
    /// Starts the update controller; everything else begins with the first use of it.
    /// system      must outlive the application
    /// homeFolder  absolute, without a trailing slash
    BrimletApp(const SystemTables& system, std::string homeFolder, std::optional<ColorScheme> fixedColors);

    /// Created on first need, with all steps of its creation.
    AppState& state();

    Appearance& appearance() { return m_appearance; }

    /// Built on first need, not yet shown.
    MainWindow& window();

private:
    DeletionHistory& openHistory();

    const SystemTables& m_system;
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
    PathJudge m_shownJudge;
    LinuxEntryLookup m_entries;
    PlacesSource m_places;
    ItemReview m_review;
    JunkFinder m_junkFinder;
    FileSystemCalls m_calls;
    LinuxFileRemoval m_removal;
    LinuxRecordStore m_records;
    DeletionExecutor m_executor;
    std::optional<DeletionHistory> m_history; ///< the removing thread's, which opens it
    JournalRecovery m_recovery;
    std::jthread m_tidying;
    WindowPanels m_panels;
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace brimlet
