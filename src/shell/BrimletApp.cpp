#include "shell/BrimletApp.h"

#include "app/Translation.h"

namespace brimlet {

BrimletApp::BrimletApp(std::string homeFolder, std::optional<ColorScheme> fixedColors)
    : m_homeFolder(std::move(homeFolder))
    , m_updateCheck(BRIMLET_UPDATE_FEED, BRIMLET_VERSION)
    , m_updater(m_updateCheck, m_opener, QStringLiteral(BRIMLET_VERSION))
    , m_appearance(fixedColors)
    , m_accessProbe(m_homeFolder)
    , m_preferences(FilePreferencesStore::standardFile(m_homeFolder)) {
    connectTranslations();
    addPackedFonts();
}

AppState& BrimletApp::state() {
    if (!m_state)
        m_state = std::make_unique<AppState>(
            AppServices{m_homeFolder, m_volumes, m_accessProbe, m_opener, m_preferences, m_panels});
    return *m_state;
}

MainWindow& BrimletApp::window() {
    if (!m_window)
        m_window = std::make_unique<MainWindow>(state(), m_appearance, m_updater, m_panels);
    return *m_window;
}

} // namespace brimlet
