// The one central object of the application: every screen reads it, every action of the user goes through it.
//
// It owns parts, one for each concern, and keeps what crosses them: the order of their creation, the update
// of all lists after a removal, and the end. Who watches a part includes its header; this one names them
// only. Main thread.
#pragma once

#include "app/background/PathUpdates.h"
#include "app/state/StatePart.h"
#include "safety/Risk.h"

#include <chrono>
#include <functional>
#include <memory>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <string>
#include <string_view>

Q_MOC_INCLUDE("app/state/AccessState.h")
Q_MOC_INCLUDE("app/state/JunkState.h")
Q_MOC_INCLUDE("app/state/NavigationState.h")
Q_MOC_INCLUDE("app/state/NoticeState.h")
Q_MOC_INCLUDE("app/state/PreferencesState.h")
Q_MOC_INCLUDE("app/state/QuickCleanState.h")
Q_MOC_INCLUDE("app/state/RemovalState.h")
Q_MOC_INCLUDE("app/state/ScanState.h")

class QJSEngine;
class QQmlEngine;

namespace brimlet {

class AccessState;
class BackgroundServices;
class ItemReview;
class JunkState;
class NavigationState;
class NoticeState;
class Panels;
class PreferencesState;
class QuickCleanState;
class RemovalState;
class ScanState;
class SystemOpener;
struct AppServices;
struct SystemTables;

class AppState : public StatePart {
    Q_OBJECT
    QML_NAMED_ELEMENT(App)
    QML_SINGLETON

    Q_PROPERTY(brimlet::NavigationState* navigation READ navigation CONSTANT)
    Q_PROPERTY(brimlet::ScanState* scan READ scan CONSTANT)
    Q_PROPERTY(brimlet::RemovalState* removal READ removal CONSTANT)
    Q_PROPERTY(brimlet::JunkState* junk READ junk CONSTANT)
    Q_PROPERTY(brimlet::QuickCleanState* quickClean READ quickClean CONSTANT)
    Q_PROPERTY(brimlet::NoticeState* notice READ notice CONSTANT)
    Q_PROPERTY(brimlet::PreferencesState* preferences READ preferences CONSTANT)
    Q_PROPERTY(brimlet::AccessState* access READ access CONSTANT)
    Q_PROPERTY(QString homeFolder READ homeFolderText CONSTANT)
    Q_PROPERTY(bool isFinishing READ isFinishing NOTIFY isFinishingChanged)

public:
    /// Takes the steps of start-up in their order; the last of them may begin a scan.
    explicit AppState(AppServices services, QObject* parent = nullptr);
    ~AppState() override;

    /// The instance that the engine's owner handed over; see engineSingleton.
    static AppState* create(QQmlEngine* engine, QJSEngine*);

    // Never null, the state's own.
    NavigationState* navigation() const;
    ScanState* scan() const;
    RemovalState* removal() const;
    JunkState* junk() const;
    QuickCleanState* quickClean() const;
    NoticeState* notice() const;
    PreferencesState* preferences() const;
    AccessState* access() const;
    BackgroundServices& background() const;

    // What the application asks of the world around it
    SafetyVerdict verdict(std::string_view path) const;
    const ItemReview& review() const; ///< any thread; blocks on the disk
    SystemOpener& opener() const;
    Panels& panels() const;
    const SystemTables& system() const;
    const std::string& homeFolder() const;
    QString homeFolderText() const;

    /// Runs what outlives the screen that began it. `work` owns all that it touches; it is waited for at the
    /// end of the application.
    void runInBackground(std::function<void()> work);

    /// Leaves what is gone from the disk out of tree and lists.
    /// then  called when all are right
    void removeDeleted(const SharedPaths& gone, const std::function<void()>& then);

    // The end
    bool isFinishing() const { return m_isFinishing; }

    /// Asked before the last window closes. While a removal or a restore is at work the answer is no: it ends
    /// with the item at hand, and `quitReady` follows. Nothing more is removed either way.
    Q_INVOKABLE bool readyToQuit();

    /// Ends all that can be ended, and waits a moment for the rest. What hangs still runs afterwards, so the
    /// process may end now but nothing may be destroyed.
    void endWork(std::chrono::milliseconds patience);

signals:
    void isFinishingChanged();
    void quitReady(); ///< after readyToQuit has said no: now nothing is at work

private:
    struct Parts;

    std::unique_ptr<Parts> m_parts;
    bool m_isFinishing = false;
};

} // namespace brimlet
