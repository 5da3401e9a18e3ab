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
#include <optional>

namespace brimlet::test {

class TestApp {
public:
    TestApp() = default;
    ~TestApp() { walks.releaseAll(); }
    TestApp(const TestApp&) = delete;
    TestApp& operator=(const TestApp&) = delete;

    /// Created on first use, so that a test can set the services up before.
    AppState& state() {
        if (!m_state) {
            m_policy.emplace(homeFolder, junkCatalogue(), bundles, running);
            m_removal.emplace(homeFolder, calls);
            m_records.emplace(historyFolder, calls);
            m_history.emplace(*m_records, *m_removal);
            m_state = std::make_unique<AppState>(
                AppServices{homeFolder, volumes, probe, opener, preferences, *activePanels, *m_policy, clock,
                            junkSearch, deletionRun, *m_history, scanWalk});
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
    FileSystemCalls calls;
    TemporaryTree scratch;
    std::string historyFolder = scratch.path("history");
    JunkSearch junkSearch = [] { return std::vector<JunkFinding>(); };
    DeletionRun deletionRun = [](const std::vector<DeletionRequest>&) { return ExecutedRun(); };

    /// Once `state` has been called.
    const SafetyPolicy& policy() const { return *m_policy; }
    LinuxFileRemoval& removal() { return *m_removal; }
    LinuxRecordStore& records() { return *m_records; }

private:
    std::optional<SafetyPolicy> m_policy;
    std::optional<LinuxFileRemoval> m_removal;
    std::optional<LinuxRecordStore> m_records;
    std::optional<DeletionHistory> m_history;
    std::unique_ptr<AppState> m_state;
};

/// Lets events go on until a condition holds. False after 20 seconds.
bool eventually(const std::function<bool()>& condition);

/// Lets all events happen that are waiting now.
void handleEvents();

} // namespace brimlet::test
