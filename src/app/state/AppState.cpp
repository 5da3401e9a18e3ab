#include "app/state/AppState.h"

#include "app/background/BackgroundWork.h"
#include "app/EngineSingleton.h"
#include "app/state/AccessState.h"
#include "app/state/AppServices.h"
#include "app/state/BackgroundServices.h"
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/PreferencesState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"

#include <initializer_list>
#include <utility>

namespace brimlet {

namespace {

AppSection initialSection(PreferencesState& preferences) {
    return sectionFromRaw(preferences.stored().initialSection()).value_or(AppSection::smartClean);
}

} // namespace

/// In the order in which they read what is stored. The last goes first, as what runs hands back to those
/// above.
struct AppState::Parts {
    explicit Parts(AppServices asked)
        : services(std::move(asked)) {
        updates.add(junk);
        updates.add(scan);
        connect(&access, &AccessState::scanWanted, &scan, [this] { scan.startScan(); });
    }

    AppServices services;
    PathUpdates updates;
    NoticeState notice;
    ScanState scan{services, work, access, preferences, notice};
    PreferencesState preferences{services.preferences, notice};
    BackgroundServices background{services.volumes, services.preferences};
    AccessState access{services};
    NavigationState navigation{initialSection(preferences), scan};
    RemovalState removal{services, work, updates, preferences, notice};
    JunkState junk{services, work, removal};
    QuickCleanState quickClean{services, junk, removal};
    BackgroundWork work;
};

AppState::AppState(AppServices services, QObject* parent)
    : StatePart(parent)
    , m_parts(std::make_unique<Parts>(std::move(services))) {
    connect(removal(), &RemovalState::finished, this, &AppState::quitReady);
    const std::string autoScan = preferences()->stored().autoScan();
    if (autoScan == "home")
        scan()->startScan(ScanTarget::home());
    else if (autoScan == "disk")
        scan()->startScan(ScanTarget::wholeDisk());
}

AppState::~AppState() {
    blockSignals(true);
    for (StatePart* part : std::initializer_list<StatePart*>{navigation(), scan(), removal(), junk(),
                                                             quickClean(), notice(), preferences(), access()})
        part->blockSignals(true);
    removal()->finish();
    junk()->cancel();
    scan()->cancelScan();
}

AppState* AppState::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<AppState>(engine);
}

NavigationState* AppState::navigation() const {
    return &m_parts->navigation;
}
ScanState* AppState::scan() const {
    return &m_parts->scan;
}
RemovalState* AppState::removal() const {
    return &m_parts->removal;
}
JunkState* AppState::junk() const {
    return &m_parts->junk;
}
QuickCleanState* AppState::quickClean() const {
    return &m_parts->quickClean;
}
NoticeState* AppState::notice() const {
    return &m_parts->notice;
}
PreferencesState* AppState::preferences() const {
    return &m_parts->preferences;
}
AccessState* AppState::access() const {
    return &m_parts->access;
}
BackgroundServices& AppState::background() const {
    return m_parts->background;
}

SafetyVerdict AppState::verdict(std::string_view path) const {
    return m_parts->services.judge(path);
}
const ItemReview& AppState::review() const {
    return m_parts->services.review;
}
SystemOpener& AppState::opener() const {
    return m_parts->services.opener;
}
Panels& AppState::panels() const {
    return m_parts->services.panels;
}
const SystemTables& AppState::system() const {
    return m_parts->services.system;
}
const std::string& AppState::homeFolder() const {
    return m_parts->services.homeFolder;
}

QString AppState::homeFolderText() const {
    return QString::fromStdString(homeFolder());
}

void AppState::runInBackground(std::function<void()> work) {
    m_parts->work.run(
        [work = std::move(work)] {
            work();
            return true;
        },
        [](bool) {});
}

void AppState::removeDeleted(const SharedPaths& gone, const std::function<void()>& then) {
    m_parts->updates.forget(gone, then);
}

bool AppState::readyToQuit() {
    if (removal()->finish())
        return true;
    change(m_isFinishing, true, &AppState::isFinishingChanged);
    return false;
}

void AppState::endWork(std::chrono::milliseconds patience) {
    removal()->finish();
    junk()->cancel();
    scan()->cancelScan();
    m_parts->work.waitFor(patience);
}

} // namespace brimlet
