// The removal side of AppState: what is pending, what was done, what was refused, and the way back.
#include "app/AppState.h"
#include "safety/DeletionPlanning.h"

#include <algorithm>
#include <utility>

namespace brimlet {

void AppState::setPlan(std::optional<DeletionPlan> plan) {
    change(m_plan, std::move(plan), &AppState::planChanged);
}

void AppState::setToast(std::optional<Toast> toast) {
    change(m_toast, std::move(toast), &AppState::toastChanged);
}

void AppState::setFailures(std::vector<DeletionFailure> failures) {
    change(m_failures, std::move(failures), &AppState::failuresChanged);
}

void AppState::proposePlan(const std::vector<PlanItem>& items, std::string_view title) {
    if (auto plan = planOf(items, title))
        setPlan(std::move(plan));
}

void AppState::executePlan(const DeletionPlan& plan, ReviewItems review) {
    std::vector<DeletionRequest> requests = requestsOf(
        plan, review, m_permanentDelete ? RemovalPreference::permanent : RemovalPreference::asPlanned);
    setPlan(std::nullopt);
    runDeletion(std::move(requests), RunNotice::shown, {});
}

void AppState::runDeletion(std::vector<DeletionRequest> requests, RunNotice notice,
                           std::function<void(const DeletionReport&)> then) {
    m_work.run([run = m_services.deletionRun, requests = std::move(requests)] { return run(requests); },
               [this, notice, then = std::move(then)](const ExecutedRun& run) {
                   finishDeletion(run, notice);
                   if (then)
                       then(run.report);
               });
}

/// The tree and the totals are right before the notice shows.
void AppState::finishDeletion(const ExecutedRun& run, RunNotice notice) {
    const DeletionReport& report = run.report;
    m_services.history.record(run);
    if (!run.entries.empty())
        emit historyChanged();
    removeDeleted({report.deletedPaths.begin(), report.deletedPaths.end()});
    change(m_volume, m_services.volumes.volumeInfo("/"), &AppState::volumeChanged);
    if (notice == RunNotice::quiet)
        return;
    const DeletionNotice said = noticeOf(report);
    Toast toast;
    toast.message = said.message;
    if (!said.detail.empty())
        toast.detail = said.detail;
    toast.undoable = undoableOf(run.entries);
    setToast(std::move(toast));
    std::vector<DeletionFailure> failures = report.failures;
    failures.insert(failures.end(), report.skippedProtected.begin(), report.skippedProtected.end());
    setFailures(std::move(failures));
}

void AppState::restoreEntries(const std::vector<HistoryEntry>& entries) {
    int restored = 0;
    for (const HistoryEntry& entry : entries)
        restored += m_services.history.restoreIfPossible(entry) ? 0 : 1;
    const DeletionNotice said = restoreNotice(restored);
    Toast toast;
    toast.message = said.message;
    toast.detail = said.detail;
    emit historyChanged();
    setToast(std::move(toast));
    change(m_volume, m_services.volumes.volumeInfo("/"), &AppState::volumeChanged);
}

void AppState::restoreEntry(const HistoryEntry& entry) {
    m_services.history.restore(entry);
    emit historyChanged();
}

void AppState::clearHistory() {
    m_services.history.clear();
    emit historyChanged();
}

void AppState::removeDeleted(const std::unordered_set<std::string>& paths) {
    if (paths.empty())
        return;
    if (m_scan) {
        m_scan->markDeleted(paths);
        emit scanChanged();
        // Whoever stood in a folder that is gone stands in the nearest one that is left.
        const auto gone =
            std::ranges::find_if(m_explorerStack, [](const FileNode* node) { return node->deleted; });
        if (gone != m_explorerStack.begin())
            setExplorerStack({m_explorerStack.begin(), gone});
    }
    removeDeletedJunk(paths);
    raiseRevision();
}

} // namespace brimlet
