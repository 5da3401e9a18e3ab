#include "app/state/QuickCleanState.h"

#include "app/state/AppServices.h"
#include "app/state/JunkState.h"
#include "app/state/RemovalState.h"

#include <chrono>
#include <utility>

namespace brimlet {

namespace {

using namespace std::chrono_literals;

/// How long a working stage shows at least, so that it can be read however fast the disk is.
constexpr std::chrono::milliseconds shortestScanning = 1600ms;
constexpr std::chrono::milliseconds shortestCleaning = 1200ms;

} // namespace

QuickCleanState::QuickCleanState(const AppServices& services, JunkState& junk, RemovalState& removal)
    : m_junk(junk)
    , m_removal(removal)
    , m_clock(services.clock)
    , m_smartSelection(defaultSelection(services.system.junk.rules)) {}

void QuickCleanState::setSmartPhaseRaw(const QString& raw) {
    if (const auto phase = smartPhaseFromCaseName(raw.toStdString()))
        setSmartPhase(*phase);
}

QString QuickCleanState::smartPhaseRaw() const {
    const std::string_view name = caseName(m_smartPhase);
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

void QuickCleanState::setSmartPhase(SmartPhase phase) {
    change(m_smartPhase, phase, &QuickCleanState::smartPhaseChanged);
}

std::int64_t QuickCleanState::smartSelectedSize() const {
    return selectedSize(m_junk.findings(), m_smartSelection);
}

void QuickCleanState::setRuleSelected(const QString& ruleId, bool selected) {
    RuleSelection selection = m_smartSelection;
    if (selected)
        selection.insert(ruleId.toStdString());
    else
        selection.erase(ruleId.toStdString());
    change(m_smartSelection, std::move(selection), &QuickCleanState::smartSelectionChanged);
}

void QuickCleanState::callAtEarliest(StageClock::Time earliest, std::function<void()> action) {
    const auto now = m_clock.now();
    if (now >= earliest)
        action();
    else
        m_clock.callAfter(std::chrono::ceil<std::chrono::milliseconds>(earliest - now), *this,
                          std::move(action));
}

void QuickCleanState::startSmartScan() {
    const int run = ++m_smartRun;
    const StageClock::Time earliest = m_clock.now() + shortestScanning;
    m_junk.loadThen([this, run, earliest] {
        callAtEarliest(earliest, [this, run] {
            if (run == m_smartRun && m_smartPhase == SmartPhase::scanning)
                setSmartPhase(SmartPhase::review);
        });
    });
}

void QuickCleanState::startSmartClean() {
    if (m_smartPhase == SmartPhase::cleaning)
        return;
    std::vector<DeletionRequest> requests = cleanRequests(m_junk.findings(), m_smartSelection);
    if (requests.empty())
        return;
    setSmartPhase(SmartPhase::cleaning);
    const StageClock::Time earliest = m_clock.now() + shortestCleaning;
    m_removal.runDeletion([requests = std::move(requests)] { return requests; }, RunNotice::shown,
                          [this, earliest](const FinishedRemovalPtr& outcome) {
                              callAtEarliest(earliest, [this, outcome] { finishSmartClean(outcome); });
                          });
}

void QuickCleanState::finishSmartClean(const FinishedRemovalPtr& outcome) {
    m_lastRun = outcome;
    emit lastReportChanged();
    if (m_smartPhase == SmartPhase::cleaning)
        setSmartPhase(SmartPhase::done);
    m_junk.load();
}

} // namespace brimlet
