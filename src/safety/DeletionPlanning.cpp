#include "safety/DeletionPlanning.h"

#include "core/ByteFormat.h"
#include "core/Localized.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace brimlet {

namespace {

bool hasSelectedAncestor(const std::string& path, const std::unordered_set<std::string_view>& selected) {
    for (std::size_t slash = path.find('/'); slash != std::string::npos; slash = path.find('/', slash + 1)) {
        const std::string_view above = std::string_view(path).substr(0, slash);
        if (selected.contains(above))
            return true;
    }
    return false;
}

bool goesAhead(Risk risk, ReviewItems review) {
    return risk == Risk::safe || (risk == Risk::review && review == ReviewItems::include);
}

std::string deletedMessage(const DeletionReport& report) {
    if (report.deletedPaths.empty())
        return localized("Nothing was deleted");
    const std::string freed = formatBytes(std::max<std::int64_t>(report.freed, 0));
    const std::string trashed = formatBytes(report.movedToTrash);
    if (report.freed >= 1 && report.movedToTrash >= 1)
        return freed + localized(" freed · ") + trashed + localized(" in the Trash");
    if (report.movedToTrash < 1)
        return freed + localized(" freed");
    return trashed + localized(" moved to the Trash");
}

} // namespace

std::optional<DeletionPlan> planOf(std::vector<PlanItem> items, std::string_view title) {
    if (items.empty())
        return std::nullopt;
    std::vector<bool> isNested(items.size());
    {
        std::unordered_set<std::string_view> selected;
        selected.reserve(items.size());
        for (const PlanItem& item : items)
            selected.insert(item.path);
        for (std::size_t i = 0; i < items.size(); ++i)
            isNested[i] = hasSelectedAncestor(items[i].path, selected);
    }
    std::size_t kept = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (isNested[i])
            continue;
        if (kept != i)
            items[kept] = std::move(items[i]);
        ++kept;
    }
    items.resize(kept);
    return DeletionPlan{Uuid::random(), std::string(title), std::move(items)};
}

std::vector<DeletionRequest> requestsOf(const DeletionPlan& plan, ReviewItems review,
                                        RemovalPreference preference) {
    std::vector<DeletionRequest> requests;
    for (const PlanItem& item : plan.items) {
        if (!goesAhead(item.verdict.risk, review))
            continue;
        const Removal removal =
            preference == RemovalPreference::permanent ? Removal::permanent : item.removal;
        requests.push_back({Uuid::random(), item.path, item.size, removal, item.verdict.risk, item.identity});
    }
    return requests;
}

DeletionNotice noticeOf(const DeletionReport& report) {
    DeletionNotice notice{deletedMessage(report), {}};
    const std::size_t refused = report.failures.size() + report.skippedProtected.size();
    if (refused > 0)
        notice.detail =
            std::to_string(refused) + localized(" item(s) couldn't be deleted. Details in History.");
    return notice;
}

std::vector<HistoryEntry> undoableOf(const std::vector<HistoryEntry>& entries) {
    std::vector<HistoryEntry> undoable;
    std::copy_if(entries.begin(), entries.end(), std::back_inserter(undoable),
                 [](const HistoryEntry& entry) { return entry.trashPath.has_value(); });
    return undoable;
}

DeletionNotice restoreNotice(int restored) {
    return {std::to_string(restored) + localized(" item(s) restored"),
            localized("Scan again to see updated sizes.")};
}

} // namespace brimlet
