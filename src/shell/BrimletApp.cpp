#include "shell/BrimletApp.h"

#include "app/Translation.h"
#include "core/TextFold.h"
#include "junk/JunkCatalogue.h"
#include "platform/HomeFolder.h"
#include "views/LocaleFold.h"

namespace brimlet {

BrimletApp::BrimletApp(std::string homeFolder, std::optional<ColorScheme> fixedColors)
    : m_homeFolder(std::move(homeFolder))
    , m_updateCheck(BRIMLET_UPDATE_FEED, BRIMLET_VERSION)
    , m_updater(m_updateCheck, m_opener, QStringLiteral(BRIMLET_VERSION))
    , m_appearance(fixedColors)
    , m_accessProbe(m_homeFolder)
    , m_running(m_bundles)
    , m_preferences(FilePreferencesStore::standardFile(m_homeFolder))
    , m_policy(m_homeFolder, junkCatalogue(), m_bundles, m_running)
    , m_recentlyRunning(m_running, std::chrono::seconds(1))
    , m_shownPolicy(m_homeFolder, junkCatalogue(), m_bundles, m_recentlyRunning)
    , m_junkFinder(m_homeFolder, m_lister, m_accessProbe)
    , m_removal(m_homeFolder, m_calls)
    , m_records(historyFolder(m_homeFolder), m_calls)
    , m_executor(m_removal, m_records,
                 judgeByBothHomes(m_policy, m_homeFolder, pathWithoutLinks(m_homeFolder)))
    , m_history(m_records, m_removal) {
    connectTranslations();
    setTextFold(foldForLocale);
    addPackedFonts();
}

AppState& BrimletApp::state() {
    if (!m_state)
        m_state = std::make_unique<AppState>(
            AppServices{m_homeFolder, m_volumes, m_accessProbe, m_opener, m_preferences, m_panels,
                        m_shownPolicy, m_clock, [this] { return m_junkFinder.scan(junkCatalogue()); },
                        [this](const auto& requests) { return m_executor.execute(requests); }, m_history});
    return *m_state;
}

MainWindow& BrimletApp::window() {
    if (!m_window)
        m_window = std::make_unique<MainWindow>(state(), m_appearance, m_updater, m_panels);
    return *m_window;
}

} // namespace brimlet
