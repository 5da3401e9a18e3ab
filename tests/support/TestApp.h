// An AppState over fake services whose scans are held until the test lets them go.
#pragma once

#include "app/AppState.h"
#include "support/FakeServices.h"
#include "support/HeldWalks.h"

#include <functional>
#include <memory>

namespace brimlet::test {

class TestApp {
public:
    TestApp() = default;
    ~TestApp() { walks.releaseAll(); }
    TestApp(const TestApp&) = delete;
    TestApp& operator=(const TestApp&) = delete;

    /// Created on first use, so that a test can set the services up before.
    AppState& state() {
        if (!m_state)
            m_state = std::make_unique<AppState>(AppServices{
                homeFolder, volumes, probe, opener, preferences, *activePanels, scanWalk});
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

private:
    std::unique_ptr<AppState> m_state;
};

/// Lets events go on until a condition holds. False after 20 seconds.
bool eventually(const std::function<bool()>& condition);

/// Lets all events happen that are waiting now.
void handleEvents();

} // namespace brimlet::test
