// From what the user selected to what the executor is told, and from its report to what the user is told.
// Pure functions; callable from any thread.
#pragma once

#include "safety/DeletionRecords.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// A plan of the items that lie in no other item, in the order given. Empty when there are no items.
std::optional<DeletionPlan> planOf(std::vector<PlanItem> items, std::string_view title);

/// Whether the user has accepted the items that need a look.
enum class ReviewItems { leaveOut, include };

/// Whether items are removed as their plan says, or all at once.
enum class RemovalPreference { asPlanned, permanent };

/// The requests that carry out a plan. Items that are protected, or that need a look and were not accepted,
/// are left out.
std::vector<DeletionRequest> requestsOf(const DeletionPlan& plan, ReviewItems review,
                                        RemovalPreference preference);

/// What is said after a run. Both in the user's language.
struct DeletionNotice {
    std::string message;
    std::string detail; ///< empty unless something could not be deleted
};

DeletionNotice noticeOf(const DeletionReport& report);

/// The entries that can be taken back: those with a place in the Trash, in order.
std::vector<HistoryEntry> undoableOf(const std::vector<HistoryEntry>& entries);

/// What is said after entries have been put back.
DeletionNotice restoreNotice(int restored);

} // namespace brimlet
