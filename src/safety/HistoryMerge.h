// How the lists of two processes become one. Pure; callable from any thread.
#pragma once

#include "safety/DeletionRecords.h"

#include <cstddef>
#include <unordered_set>
#include <vector>

namespace brimlet {

struct UuidHash {
    std::size_t operator()(const Uuid& uuid) const;
};
using UuidSet = std::unordered_set<Uuid, UuidHash>;

/// More than these are not kept.
inline constexpr std::size_t mostHistoryEntries = 5000;

/// The list to be written, newest first and at most mostHistoryEntries long.
///
/// base    what both had when this process last read or wrote the file
/// ours    this process's list
/// theirs  what the file holds now
/// What either added since is in it, once; what either took away is not; what either restored is restored.
std::vector<HistoryEntry> mergedHistory(const UuidSet& base, const std::vector<HistoryEntry>& ours,
                                        const std::vector<HistoryEntry>& theirs);

/// Drops the oldest of a list that is too long.
void trimHistory(std::vector<HistoryEntry>& entries);

} // namespace brimlet
