#include "shell/BrimletApp.h"

#include "app/state/AppServices.h"
#include "app/Translation.h"
#include "core/TextFold.h"
#include "platform/HomeFolder.h"
#include "views/base/LocaleFold.h"

#include <QCoreApplication>

namespace brimlet {

BrimletApp::BrimletApp(const SystemTables& system, std::string homeFolder,
                       std::optional<ColorScheme> fixedColors)
    : m_system(system)
    , m_homeFolder(std::move(homeFolder))
    , m_updateCheck(BRIMLET_UPDATE_FEED, BRIMLET_VERSION)
    , m_updater(m_updateCheck, m_opener, QStringLiteral(BRIMLET_VERSION))
    , m_appearance(fixedColors)
    , m_volumes(std::string(system.words.diskName))
    , m_accessProbe(std::string(system.access.database),
                    m_homeFolder + "/" + std::string(system.access.homeFolder))
    , m_running(m_bundles, system.safety.applications.suffix)
    , m_preferences(m_homeFolder + "/" + std::string(system.preferencesFile))
    , m_policy(m_homeFolder, system.safety, system.junk.rules, m_bundles, m_running)
    , m_recentlyRunning(m_running, std::chrono::seconds(1))
    , m_shownPolicy(m_homeFolder, system.safety, system.junk.rules, m_bundles, m_recentlyRunning)
    , m_shownJudge(judgeByBothHomes(m_shownPolicy, m_homeFolder, pathWithoutLinks(m_homeFolder)))
    , m_places(placesOfUser(m_homeFolder, system.safety, m_policy, m_entries, m_lister))
    , m_review(m_shownJudge, m_places, m_entries)
    , m_junkFinder(m_homeFolder, system.junk, m_lister, m_accessProbe)
    , m_removal(m_homeFolder, m_calls)
    , m_records(historyFolder(m_homeFolder, system.safety), m_calls)
    , m_executor(system.safety, m_removal, m_records,
                 judgeByBothHomes(m_policy, m_homeFolder, pathWithoutLinks(m_homeFolder)), m_places)
    , m_recovery(m_records, m_removal)
    , m_panels(m_homeFolder) {
    m_records.keepReserve();
    connectTranslations();
    setTextFold(foldForLocale);
    addPackedFonts();
}

AppState& BrimletApp::state() {
    if (m_state)
        return *m_state;
    m_state = std::make_unique<AppState>(AppServices{
        .system = m_system,
        .homeFolder = m_homeFolder,
        .volumes = m_volumes,
        .accessProbe = m_accessProbe,
        .opener = m_opener,
        .preferences = m_preferences,
        .panels = m_panels,
        .judge = m_shownJudge,
        .review = m_review,
        .clock = m_clock,
        .junkSearch = [this](const auto& stop) { return m_junkFinder.scan(m_system.junk.rules, stop); },
        .deletionRun = [this](const auto& requests,
                              const auto& stop) { return m_executor.execute(requests, stop); },
        .openHistory = [this]() -> DeletionHistory& { return openHistory(); },
    });
    QObject::connect(m_state.get(), &AppState::quitReady, qApp, &QCoreApplication::quit);
    return *m_state;
}

/// What interrupted runs have left: what is known of it joins the history, what is to be removed goes
/// meanwhile.
DeletionHistory& BrimletApp::openHistory() {
    DeletionHistory& history = m_history.emplace(m_records, m_removal, HistoryStart::fileOnly);
    history.take(m_recovery.complete(), m_recovery);
    m_tidying = std::jthread([this](const std::stop_token& stop) { m_recovery.tidy(stop); });
    return history;
}

MainWindow& BrimletApp::window() {
    if (!m_window)
        m_window = std::make_unique<MainWindow>(state(), m_appearance, m_updater, m_panels);
    return *m_window;
}

} // namespace brimlet
