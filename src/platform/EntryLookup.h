// A read-only look at what a path names, for those who judge and show and never change anything.
#pragma once

#include "platform/EntryIdentity.h"

#include <optional>
#include <string>

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
    virtual std::optional<FoundEntry> find(const std::string& path) const = 0;
};

} // namespace brimlet
