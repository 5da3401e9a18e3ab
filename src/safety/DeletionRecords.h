// The plain values that a removal passes through: plan, requests, report, history entries.
#pragma once

#include "platform/EntryIdentity.h"
#include "safety/JunkRule.h"
#include "safety/Risk.h"
#include "safety/Uuid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brimlet {

/// One row of a plan.
struct PlanItem {
    std::string path;      ///< absolute, any bytes
    std::string name;      ///< last path component, for display
    std::int64_t size = 0; ///< bytes that this item will free
    Removal removal = Removal::trash;
    SafetyVerdict verdict; ///< at the time the plan was built
    /// What it was when it was judged; empty where nothing was there, or that can't be told.
    std::optional<PlacedIdentity> identity = std::nullopt;
    bool operator==(const PlanItem&) const = default;
};

/// What the confirmation sheet shows.
struct DeletionPlan {
    Uuid id = Uuid::random();
    std::string title;
    std::vector<PlanItem> items; ///< in the order given, nested items already removed
    bool operator==(const DeletionPlan&) const = default;
};

/// One instruction to the executor.
struct DeletionRequest {
    Uuid id = Uuid::random();
    std::string path;
    std::int64_t size = 0;
    Removal removal = Removal::trash;                      ///< the effective way of removal
    Risk acceptedRisk = Risk::safe;                        ///< what the user was told of it, and went ahead
    std::optional<PlacedIdentity> identity = std::nullopt; ///< what was judged; without it nothing goes
    bool operator==(const DeletionRequest&) const = default;
};

/// A path that was not removed.
struct DeletionFailure {
    Uuid id = Uuid::random();
    std::string path;
    std::string reason; ///< sentence for the user
    bool operator==(const DeletionFailure&) const = default;
};

/// The outcome of one run.
struct DeletionReport {
    std::int64_t freed = 0; ///< sum of the requests' sizes, deleted permanently, and of what went of others
    std::int64_t movedToTrash = 0;                 ///< likewise, moved to the Trash
    std::vector<std::string> deletedPaths;         ///< gone from their places, both ways, in request order
    std::vector<DeletionFailure> failures;         ///< what the file system refused
    std::vector<DeletionFailure> skippedProtected; ///< what the policy refused
    std::vector<DeletionFailure> remarks;          ///< on what is gone all the same: what its copy lacks
    bool operator==(const DeletionReport&) const = default;
};

/// One deleted item, as the history keeps it.
struct HistoryEntry {
    Uuid id = Uuid::random();
    double date = 0; ///< seconds since 2001-01-01 00:00:00 UTC
    std::string originalPath;
    std::optional<std::string> trashPath; ///< empty for a permanent deletion
    std::int64_t size = 0;
    bool restored = false;
    std::optional<FileIdentity> identity = std::nullopt; ///< of what arrived in the Trash, where it is known
    bool operator==(const HistoryEntry&) const = default;
};

} // namespace brimlet
