// The way from the rows of a list to those it has next, told as removals and insertions, so that a view keeps
// its place, its selection and its focus.
#pragma once

#include <map>
#include <vector>

namespace brimlet {

/// Rows that follow each other.
struct RowRun {
    int first = 0;
    int last = 0;
    bool operator==(const RowRun&) const = default;
};

/// The removals from the last to the first, so that each is valid when its turn comes; then the insertions
/// from the first to the last, told by their place in the new list.
struct RowChanges {
    std::vector<RowRun> removed;
    std::vector<RowRun> inserted;
    bool operator==(const RowChanges&) const = default;
};

/// Rows are the same where their keys are; a key stands for one row of a list. What changed its order is
/// removed and inserted again.
template <typename Key>
RowChanges rowChanges(const std::vector<Key>& before, const std::vector<Key>& now) {
    std::map<Key, int> placeBefore;
    for (int row = 0; row < static_cast<int>(before.size()); ++row)
        placeBefore.emplace(before[static_cast<std::size_t>(row)], row);
    RowChanges changes;
    std::vector<bool> isKept(before.size());
    int lastKept = -1;
    for (int row = 0; row < static_cast<int>(now.size()); ++row) {
        const auto found = placeBefore.find(now[static_cast<std::size_t>(row)]);
        if (found != placeBefore.end() && found->second > lastKept) {
            lastKept = found->second;
            isKept[static_cast<std::size_t>(lastKept)] = true;
        } else if (!changes.inserted.empty() && changes.inserted.back().last == row - 1) {
            changes.inserted.back().last = row;
        } else {
            changes.inserted.push_back({row, row});
        }
    }
    for (int row = static_cast<int>(before.size()) - 1; row >= 0; --row) {
        if (isKept[static_cast<std::size_t>(row)])
            continue;
        if (!changes.removed.empty() && changes.removed.back().first == row + 1)
            changes.removed.back().first = row;
        else
            changes.removed.push_back({row, row});
    }
    return changes;
}

} // namespace brimlet
