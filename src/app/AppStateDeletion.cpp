// The removal side of AppState: what is pending, what was done, what was refused.
#include "app/AppState.h"
#include "safety/DeletionPlanning.h"

namespace brimlet {

void AppState::proposePlan(std::vector<PlanItem> items, const std::string& title) {
    if (std::optional<DeletionPlan> plan = planOf(items, title))
        setPlan(std::move(plan));
}

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
    raiseRevision();
}

} // namespace brimlet
