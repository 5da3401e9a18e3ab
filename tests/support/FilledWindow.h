// A window in which every list has something to show: long names and reasons, all rules, all risks, failures.
// Nothing of it is on the disk but the Trash of the history.
#pragma once

#include "support/MadeUpJunk.h"
#include "support/SyntheticTree.h"
#include "support/TestWindow.h"

#include <string>
#include <vector>

namespace brimlet::test {

class FilledWindow {
public:
    FilledWindow() { fillServices(); }

    TestApp app;

    /// Shows the window on first use.
    TestWindow& window() {
        if (!m_window)
            m_window = std::make_unique<TestWindow>(app);
        return *m_window;
    }
    WindowDriver& driver() { return window().driver(); }
    AppState& state() { return app.state(); }

    void finishScan();
    void reachReview();   ///< of Quick Clean
    void reachReport();   ///< from there
    void showMixedPlan(); ///< the sheet with items of all three risks
    void showNotice();

private:
    void fillServices();

    std::unique_ptr<TestWindow> m_window;
};

} // namespace brimlet::test
