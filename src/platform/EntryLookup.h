// A read-only look at what a path names, for those who judge and show and never change anything.
#pragma once

#include "platform/EntryIdentity.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brimlet {

/// What was found at a path.
struct FoundEntry {
    std::string path; ///< absolute, every link among the parents resolved; the entry itself is not
    PlacedIdentity identity;
};

class EntryLookup {
public:
    virtual ~EntryLookup() = default;

    /// Follows links among the parents of an absolute path, not the entry itself.
    /// returns empty where there is no such entry or it can't be told, and for "/"
    /// thread  any; blocks on the disk
    std::optional<FoundEntry> find(const std::string& path) const;

    /// What is told of one of many paths, by its place among them; empty as above.
    using Found = std::function<void(std::size_t index, const std::optional<FoundEntry>& entry)>;

    /// Looks up many and opens each folder once. Calls `found` once for each, in any order.
    virtual void findEach(const std::vector<std::string>& paths, const Found& found) const = 0;
};

inline std::optional<FoundEntry> EntryLookup::find(const std::string& path) const {
    std::optional<FoundEntry> one;
    findEach({path}, [&](std::size_t, const std::optional<FoundEntry>& entry) { one = entry; });
    return one;
}

} // namespace brimlet
