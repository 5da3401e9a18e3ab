// An AppState over fake services whose scans are held until the test lets them go.
#pragma once

#include "app/AppState.h"
#include "junk/JunkCatalogue.h"
#include "platform/linux/LinuxFileRemoval.h"
#include "platform/linux/LinuxRecordStore.h"
#include "support/FakeBundles.h"
#include "support/FakeServices.h"
#include "support/FakeStageClock.h"
#include "support/HeldWalks.h"
#include "support/TemporaryTree.h"

#include <functional>
#include <memory>

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
            m_policy = std::make_unique<SafetyPolicy>(homeFolder, junkCatalogue(), bundles, running);
            m_state = std::make_unique<AppState>(AppServices{
                homeFolder, volumes, probe, opener, preferences, *activePanels, *m_policy, clock,
                [this] { return junkSearch(); },
                [this](const std::vector<DeletionRequest>& requests) { return deletionRun(requests); },
                history, scanWalk});
        }
        return *m_state;
    }

    CallLog log;
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
    JunkSearch junkSearch = [] { return std::vector<JunkFinding>(); };
    DeletionRun deletionRun = [](const std::vector<DeletionRequest>&) { return ExecutedRun(); };
    std::shared_ptr<TemporaryTree> sharedDisk;
    TemporaryTree& disk = *sharedDisk; ///< holds the history, and whatever a test restores
    FileSystemCalls calls;
    LinuxFileRemoval removal{disk.root(), calls};
    LinuxRecordStore records{disk.path("history"), calls};
    DeletionHistory history{records, removal};

private:
    std::unique_ptr<SafetyPolicy> m_policy;
    std::unique_ptr<AppState> m_state;
};

/// Lets events go on until a condition holds. False after 20 seconds.
bool eventually(const std::function<bool()>& condition);

/// Lets all events happen that are waiting now.
void handleEvents();

} // namespace brimlet::test
