// The removal side of AppState: what is pending, what was done, what was refused.
#include "app/AppState.h"

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

void AppState::restoreEntries(const std::vector<HistoryEntry>& entries) {
    emit restoreWanted(entries);
}

void AppState::removeDeleted(const std::unordered_set<std::string>& paths) {
    if (paths.empty())
        return;
    if (m_scan) {
        m_scan->markDeleted(paths);
        emit scanChanged();
    }
    removeDeletedJunk(paths);
    raiseRevision();
}

void AppState::proposePlan(std::vector<PlanItem> items, const std::string& title) {
    if (!items.empty())
        setPlan(DeletionPlan{Uuid::random(), title, std::move(items)});
}

void AppState::executePlan(const DeletionPlan& plan, bool includeReview) {
    std::vector<DeletionRequest> requests;
    for (const PlanItem& item : plan.items) {
        if (item.verdict.risk == Risk::safe || (item.verdict.risk == Risk::review && includeReview))
            requests.push_back({Uuid::random(), item.path, item.size,
                                m_permanentDelete ? Removal::permanent : item.removal});
    }
    setPlan(std::nullopt);
    runDeletion(std::move(requests), [](const DeletionReport&) {});
}

void AppState::runDeletion(std::vector<DeletionRequest> requests,
                           std::function<void(const DeletionReport&)> then) {
    m_work.run([run = m_services.deletionRun, requests = std::move(requests)] { return run(requests); },
               [this, then = std::move(then)](const DeletionReport& report) {
                   removeDeleted({report.deletedPaths.begin(), report.deletedPaths.end()});
                   then(report);
               });
}

} // namespace brimlet
