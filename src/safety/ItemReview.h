// What is found out about items before anybody is asked to consent to their removal: how safe that is, and
// what they are. The deletion engine removes nothing that was not reviewed, and nothing that is another thing
// by then. Immutable; callable from any thread; blocks on the disk.
#pragma once

#include "platform/EntryIdentity.h"
#include "safety/PathJudge.h"
#include "safety/ProtectedPlaces.h"
#include "safety/Risk.h"

#include <optional>
#include <string>
#include <vector>

namespace brimlet {

class EntryLookup;
struct FoundEntry;

struct ReviewedItem {
    SafetyVerdict verdict;
    std::optional<PlacedIdentity> identity; ///< empty where nothing is there, or that can't be told
};

class ItemReview {
public:
    /// places    asked once for each review
    /// entries   must outlive the review
    ItemReview(PathJudge judge, PlacesSource places, const EntryLookup& entries);

    /// One answer a path, in order: the stricter of the verdicts on the path as given and on the path without
    /// links that it leads to. What holds a protected place is protected, too.
    std::vector<ReviewedItem> review(const std::vector<std::string>& paths) const;

private:
    ReviewedItem reviewOne(const std::string& path, const std::optional<FoundEntry>& found,
                           const ProtectedPlaces& places) const;

    PathJudge m_judge;
    PlacesSource m_places;
    const EntryLookup& m_entries;
};

} // namespace brimlet
