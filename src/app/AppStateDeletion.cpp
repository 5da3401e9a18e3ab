// The removal side of AppState: what is pending, what was done, what was refused.
#include "app/AppState.h"

namespace brimlet {

namespace {

/// Whether any folder around a path is in the set.
bool liesBelowAny(std::string_view path, const std::unordered_set<std::string>& paths) {
    for (std::size_t slash = path.rfind('/'); slash != std::string_view::npos && slash > 0;
         slash = path.rfind('/', slash - 1)) {
        if (paths.contains(std::string(path.substr(0, slash))))
            return true;
    }
    return false;
}

} // namespace

void AppState::proposePlan(std::vector<PlanItem> items, std::string title) {
    if (items.empty())
        return;
    std::unordered_set<std::string> paths;
    for (const PlanItem& item : items)
        paths.insert(item.path);
    std::erase_if(items, [&](const PlanItem& item) { return liesBelowAny(item.path, paths); });
    DeletionPlan plan;
    plan.title = std::move(title);
    plan.items = std::move(items);
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
