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

SearchedList<std::vector<JunkFinding>>::Owner AppState::junkOwner() {
    return {.publish =
                [this](std::vector<JunkFinding> found) {
                    m_junk = std::move(found);
                    emit junkChanged();
                },
            .loadingChanged = [this] { emit junkLoadingChanged(); },
            .leaveOut =
                [](std::vector<JunkFinding>& found, const std::unordered_set<std::string>& gone) {
                    eraseItems(found, gone);
                    std::erase_if(found, [](const JunkFinding& finding) { return finding.items.empty(); });
                }};
}

void AppState::removeDeletedJunk(const std::unordered_set<std::string>& paths) {
    m_junkSearch.deleted(paths);
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
    m_junkSearch.load([this, run, earliest] {
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
    runDeletion([requests = std::move(requests)] { return requests; }, RunNotice::shown,
                [this, earliest](const FinishedRemovalPtr& outcome) {
                    callAtEarliest(earliest, [this, outcome] { finishSmartClean(outcome); });
                });
}

void AppState::finishSmartClean(const FinishedRemovalPtr& outcome) {
    m_lastRun = outcome;
    emit lastReportChanged();
    if (m_smartPhase == SmartPhase::cleaning)
        setSmartPhase(SmartPhase::done);
    loadJunk();
}

void AppState::proposeJunkPlan(std::vector<ChosenJunk> chosen) {
    PlanDraft draft{tr("Clean Junk").toStdString(), static_cast<std::int64_t>(chosen.size()), 0, {}};
    for (const ChosenJunk& one : chosen)
        draft.size += one.item.size;
    draft.items = [chosen = std::move(chosen), &review = m_services.review](const std::stop_token&) {
        return planItems(chosen, review);
    };
    proposePlan(std::move(draft));
}

} // namespace brimlet
