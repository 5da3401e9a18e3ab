// An AppState over fake services whose scans are held until the test lets them go.
#pragma once

#include "app/state/AppState.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/removal/LinuxFileRemoval.h"
#include "platform/linux/removal/LinuxRecordStore.h"
#include "safety/SafetyPolicy.h"
#include "support/FakeBundles.h"
#include "support/FakeServices.h"
#include "support/FakeStageClock.h"
#include "support/HeldWalks.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_set>

namespace brimlet::test {

class TestApp {
public:
    /// `shared` is the disk of another TestApp, as after a restart.
    explicit TestApp(std::shared_ptr<TemporaryTree> shared = std::make_shared<TemporaryTree>())
        : sharedDisk(std::move(shared)) {}
    ~TestApp() { walks.releaseAll(); }
    TestApp(const TestApp&) = delete;
    TestApp& operator=(const TestApp&) = delete;

    /// Created on first use, so that a test can set the services up before.
    AppState& state() {
        if (!m_state) {
            m_policy = std::make_unique<SafetyPolicy>(homeFolder, system.safety, system.junk.rules, bundles,
                                                      running);
            m_review = std::make_unique<ItemReview>(
                [this](std::string_view path) { return m_policy->verdict(path); },
                placesOfUser(homeFolder, macosTables().safety, *m_policy, m_entries, m_lister), m_entries);
            m_state = std::make_unique<AppState>(AppServices{
                .system = system,
                .homeFolder = homeFolder,
                .volumes = volumes,
                .accessProbe = probe,
                .opener = opener,
                .preferences = preferences,
                .panels = *activePanels,
                .judge = [this](std::string_view path) { return m_policy->verdict(path); },
                .review = *m_review,
                .clock = clock,
                .junkSearch = [this](const std::stop_token&) { return junkSearch(); },
                .deletionRun = [this](const auto& requests,
                                      const auto& stop) { return deletionRun(requests, stop); },
                .openHistory = [this]() -> DeletionHistory& { return history; },
                .scanWalk = scanWalk,
            });
        }
        return *m_state;
    }

    CallLog log;
    const SystemTables& system = macosTables();
    std::string homeFolder = "/Users/sam";
    FakeVolumes volumes{log};
    LoggingAccessProbe probe{log};
    FakeOpener opener{log};
    FakePreferences preferences{log};
    FakePanels panels;
    Panels* activePanels = &panels;
    HeldWalks walks;
    ScanWalk scanWalk = walks.walk();
    FakeBundles bundles;
    FakeRunningApplications running;
    FakeStageClock clock;
    std::function<std::vector<JunkFinding>()> junkSearch = [] { return std::vector<JunkFinding>(); };
    DeletionRun deletionRun = [](const auto&, const auto&) { return ExecutedRun(); };
    std::shared_ptr<TemporaryTree> sharedDisk;
    TemporaryTree& disk = *sharedDisk; ///< holds the history, and whatever a test restores
    FileSystemCalls calls;
    LinuxFileRemoval removal{disk.root(), calls};
    LinuxRecordStore records{disk.path("history"), calls};
    DeletionHistory history{records, removal};

private:
    LinuxEntryLookup m_entries;
    LinuxDirectoryLister m_lister;
    std::unique_ptr<SafetyPolicy> m_policy;
    std::unique_ptr<ItemReview> m_review;
    std::unique_ptr<AppState> m_state;
};

/// Lets events go on until a condition holds. False after 20 seconds.
bool eventually(const std::function<bool()>& condition);

/// Tells the state what has gone from the disk, and waits until tree and lists say so. False after 20
/// seconds.
bool removeDeleted(AppState& state, std::unordered_set<std::string> paths);

/// Lets all events happen that are waiting now.
void handleEvents();

} // namespace brimlet::test
