// The main window: one QML engine with what the screens read, and the window it makes. Main thread.
#pragma once

#include "views/base/Words.h"
#include "views/icons/FileLooks.h"
#include "views/interaction/KeyGuard.h"
#include "views/interaction/PressGuard.h"

#include <memory>
#include <QQmlApplicationEngine>

class QQuickWindow;

namespace brimlet {

class Appearance;
class AppState;
class UpdateController;
class WindowPanels;

class MainWindow {
public:
    /// Builds the window without showing it. The references outlive this object.
    MainWindow(AppState& state, Appearance& appearance, UpdateController& updates, WindowPanels& panels);
    ~MainWindow();

    /// Null where the QML could not be loaded; the reason is in the log.
    QQuickWindow* window() const;
    QQmlApplicationEngine& engine() { return m_engine; }

    /// Shows the window and starts what begins with its first showing.
    void show();

private:
    AppState& m_state;
    KeyGuard m_keyGuard{KeyGuard::formOfWindowSystem()};
    PressGuard m_pressGuard;
    FileLooks m_fileLooks;
    Words m_words;
    QQmlApplicationEngine m_engine;
};

/// Makes the packed fonts known. Call once, after the application object exists.
void addPackedFonts();

} // namespace brimlet
