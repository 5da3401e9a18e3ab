// The real main window over fake services, shown, with a driver for it. A warning of the window's QML is a
// test failure.
#pragma once

#include "app/Appearance.h"
#include "app/UpdateController.h"
#include "support/TestApp.h"
#include "support/WindowDriver.h"
#include "views/window/MainWindow.h"
#include "views/window/WindowPanels.h"

#include <gtest/gtest.h>
#include <memory>
#include <QApplication>
#include <QTemporaryDir>

namespace brimlet::test {

class TestWindow {
public:
    /// Builds and shows the window. Set `app` up before.
    explicit TestWindow(TestApp& app);

    AppState& state() { return m_app.state(); }
    WindowDriver& driver() { return *m_driver; }
    QQuickWindow& window() { return *m_main.window(); }
    QQmlApplicationEngine& engine() { return m_main.engine(); }
    Appearance& appearance() { return m_appearance; }
    WindowPanels& panels() { return m_panels; }
    FakeUpdateCheck& updates() { return m_updateCheck; }

    void resize(int width, int height);

private:
    TestApp& m_app;
    WindowPanels m_panels{m_app.disk.root()};
    FakeUpdateCheck m_updateCheck;
    Appearance m_appearance{ColorScheme::light};
    UpdateController m_updateController{m_updateCheck, m_app.opener, QStringLiteral("1.0")};
    MainWindow m_main;
    std::unique_ptr<WindowDriver> m_driver;
};

/// Settles what must stand before the application object exists, and what must follow it.
void prepareWindowTests();
void prepareWindow();

/// The main function of a program of window tests.
template <typename Application = QApplication>
int runWindowTests(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir runtimeFolder; // a session's own folder; a bare machine has none
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    prepareWindowTests();
    const Application application(argc, argv);
    prepareWindow();
    return RUN_ALL_TESTS();
}

} // namespace brimlet::test
