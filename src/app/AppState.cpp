#include "app/AppState.h"

#include "app/EngineSingleton.h"
#include "app/Exclusions.h"
#include "core/Paths.h"

namespace brimlet {

AppState::AppState(AppServices services, QObject* parent)
    : QObject(parent)
    , m_services(std::move(services))
    , m_preferences(m_services.preferences)
    , m_removals(m_services.deletionRun, m_services.openHistory)
    , m_proposals(m_work)
    , m_junkSearch(m_work, m_services.junkSearch, junkOwner())
    , m_volume(m_services.volumes.volumeInfo("/"))
    , m_smartSelection(defaultSelection(m_services.system.junk.rules))
    , m_excludedRaw(m_preferences.excludedPaths())
    , m_permanentDelete(m_preferences.permanentDelete())
    , m_background(std::make_unique<BackgroundServices>(m_services.volumes, m_services.preferences))
    , m_accessOnboardingSkipped(m_preferences.accessOnboardingSkipped()) {
    connect(&m_removals, &Removals::historyChanged, this, &AppState::historyChanged);
    connect(&m_removals, &Removals::finished, this, &AppState::quitReady);
    connect(&m_proposals, &PlanProposals::changed, this, &AppState::planChanged);
    m_hasFullDiskAccess = m_services.accessProbe.hasFullDiskAccess();
    m_section = sectionFromRaw(m_preferences.initialSection()).value_or(AppSection::smartClean);
    const std::string autoScan = m_preferences.autoScan();
    if (autoScan == "home")
        startScan(ScanTarget::home());
    else if (autoScan == "disk")
        startScan(ScanTarget::wholeDisk());
}

AppState::~AppState() {
    blockSignals(true);
    m_removals.finish();
    m_proposals.cancel();
    m_junkSearch.cancel();
    dropScanner();
}

AppState* AppState::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<AppState>(engine);
}

void AppState::setSection(AppSection section) {
    change(m_section, section, &AppState::sectionChanged);
}

QString AppState::sectionRaw() const {
    const std::string_view raw = look(m_section).rawValue;
    return QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size()));
}

void AppState::setSectionRaw(const QString& raw) {
    if (const auto section = sectionFromRaw(raw.toStdString()))
        setSection(*section);
}

void AppState::runInBackground(std::function<void()> work) {
    m_work.run(
        [work = std::move(work)] {
            work();
            return true;
        },
        [](bool) {});
}

void AppState::setExplorerStack(std::vector<FileNode*> stack) {
    if (!stack.empty() && (!m_scan || stack.front() != m_scan->root)) // of an earlier scan
        return;
    change(m_explorerStack, std::move(stack), &AppState::explorerStackChanged);
}

void AppState::setLargeFilter(FileFilter filter) {
    change(m_largeFilter, std::move(filter), &AppState::largeFilterChanged);
}

void AppState::setExcludedRaw(const std::string& raw) {
    m_preferences.setExcludedPaths(raw);
    change(m_excludedRaw, raw, &AppState::excludedRawChanged);
}

void AppState::excludeFolder(const std::string& folder) {
    if (canBeExcluded(folder))
        setExcludedRaw(withExcludedPath(m_excludedRaw, folder));
    else
        say(tr("This folder can’t be excluded: its path has a line break in it."));
}

void AppState::includeFolderAgain(std::size_t position) {
    setExcludedRaw(withoutExcludedPath(m_excludedRaw, position));
}

void AppState::setPermanentDelete(bool on) {
    m_preferences.setPermanentDelete(on);
    change(m_permanentDelete, on, &AppState::permanentDeleteChanged);
}

void AppState::openFullDiskAccessSettings() {
    m_services.opener.openUrl(fullDiskAccessSettingsUrl);
}

void AppState::probeFullDiskAccess() {
    change(m_hasFullDiskAccess, m_services.accessProbe.hasFullDiskAccess(),
           &AppState::hasFullDiskAccessChanged);
}

void AppState::scanWithoutAccess() {
    m_preferences.setAccessOnboardingSkipped(true);
    m_accessOnboardingSkipped = true;
    closeAccessOnboarding();
    startScan();
}

void AppState::closeAccessOnboarding() {
    change(m_showAccessOnboarding, false, &AppState::showAccessOnboardingChanged);
}

} // namespace brimlet
