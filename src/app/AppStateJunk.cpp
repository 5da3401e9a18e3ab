// The junk side of AppState: the list of findings, and Quick Clean's way from the scan to the report.
#include "app/AppState.h"

#include "junk/JunkCatalogue.h"
#include "junk/JunkPlan.h"

#include <algorithm>
#include <utility>

namespace brimlet {

namespace {

using namespace std::chrono_literals;

/// How long a working stage shows at least, so that it can be read however fast the disk is.
constexpr std::chrono::milliseconds shortestScanning = 1600ms;
constexpr std::chrono::milliseconds shortestCleaning = 1200ms;

void eraseItems(std::vector<JunkFinding>& junk, const std::unordered_set<std::string>& paths) {
    for (JunkFinding& finding : junk)
        std::erase_if(finding.items, [&](const JunkItem& item) { return paths.contains(item.path); });
}

} // namespace

void AppState::loadJunk(std::function<void()> then) {
    if (then)
        m_afterJunkLoad.push_back(std::move(then));
    const int load = ++m_junkLoad;
    m_deletedWhileJunkLoads.clear();
    change(m_junkLoading, true, &AppState::junkLoadingChanged);
    m_work.run(m_services.junkSearch,
               [this, load](std::vector<JunkFinding> found) { finishJunkLoad(load, std::move(found)); });
}

/// Only the newest load counts: an older one may have seen what has been removed since.
void AppState::finishJunkLoad(int load, std::vector<JunkFinding> found) {
    if (load != m_junkLoad)
        return;
    eraseItems(found, m_deletedWhileJunkLoads);
    std::erase_if(found, [](const JunkFinding& finding) { return finding.items.empty(); });
    m_junk = std::move(found);
    emit junkChanged();
    change(m_junkLoading, false, &AppState::junkLoadingChanged);
    for (const std::function<void()>& then : std::exchange(m_afterJunkLoad, {}))
        then();
}

void AppState::removeDeletedJunk(const std::unordered_set<std::string>& paths) {
    if (m_junkLoading)
        m_deletedWhileJunkLoads.insert(paths.begin(), paths.end());
    if (m_junk.empty())
        return;
    eraseItems(m_junk, paths);
    emit junkChanged();
}

void AppState::setSmartPhaseRaw(const QString& raw) {
    if (const auto phase = smartPhaseFromCaseName(raw.toStdString()))
        setSmartPhase(*phase);
}

QString AppState::smartPhaseRaw() const {
    const std::string_view name = caseName(m_smartPhase);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

void AppState::setSmartPhase(SmartPhase phase) {
    change(m_smartPhase, phase, &AppState::smartPhaseChanged);
}

void AppState::setRuleSelected(const QString& ruleId, bool selected) {
    RuleSelection selection = m_smartSelection;
    if (selected)
        selection.insert(ruleId.toStdString());
    else
        selection.erase(ruleId.toStdString());
    change(m_smartSelection, std::move(selection), &AppState::smartSelectionChanged);
}

void AppState::callAtEarliest(StageClock::Time earliest, std::function<void()> action) {
    const auto now = m_services.clock.now();
    if (now >= earliest)
        action();
    else
        m_services.clock.callAfter(std::chrono::ceil<std::chrono::milliseconds>(earliest - now), *this,
                                   std::move(action));
}

void AppState::startSmartScan() {
    const int run = ++m_smartRun;
    const StageClock::Time earliest = m_services.clock.now() + shortestScanning;
    loadJunk([this, run, earliest] {
        callAtEarliest(earliest, [this, run] {
            if (run == m_smartRun && m_smartPhase == SmartPhase::scanning)
                setSmartPhase(SmartPhase::review);
        });
    });
}

void AppState::startSmartClean() {
    if (m_smartPhase == SmartPhase::cleaning)
        return;
    std::vector<DeletionRequest> requests = cleanRequests(m_junk, m_smartSelection);
    if (requests.empty())
        return;
    setSmartPhase(SmartPhase::cleaning);
    const StageClock::Time earliest = m_services.clock.now() + shortestCleaning;
    runDeletion(std::move(requests), RunNotice::shown, [this, earliest](const DeletionReport& report) {
        callAtEarliest(earliest, [this, report] { finishSmartClean(report); });
    });
}

void AppState::finishSmartClean(const DeletionReport& report) {
    m_lastReport = report;
    emit lastReportChanged();
    if (m_smartPhase == SmartPhase::cleaning)
        setSmartPhase(SmartPhase::done);
    loadJunk();
}

void AppState::proposeJunkPlan(std::vector<ChosenJunk> chosen) {
    const auto title = tr("Clean Junk").toStdString();
    m_work.run(
        [chosen = std::move(chosen), &policy = m_services.policy] { return planItems(chosen, policy); },
        [this, title](const std::vector<PlanItem>& items) { proposePlan(items, title); });
}

} // namespace brimlet
