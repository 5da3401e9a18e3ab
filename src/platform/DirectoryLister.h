// A read-only look into folders, for those who search and never change anything.
#pragma once

#include "platform/EntryIdentity.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace brimlet {

/// One direct child of a folder.
struct ListedChild {
    std::string name;               ///< last path component, any bytes
    std::optional<double> modified; ///< of its content, seconds since 1970; empty where it can't be told
    std::optional<std::int64_t> fileBytes = std::nullopt;  ///< allocated; empty for a directory, or as above
    std::optional<PlacedIdentity> identity = std::nullopt; ///< as it was listed; empty as above
    bool operator==(const ListedChild&) const = default;
};

class DirectoryLister {
public:
    virtual ~DirectoryLister() = default;

    /// The direct children of a folder in the order the system gives them, hidden ones too, "." and ".." not.
    /// Dates, sizes and identities are those of the children themselves, links not followed.
    /// returns empty where it can't be listed to its end, and where `folder` itself is a symbolic link
    /// thread  any
    virtual std::optional<std::vector<ListedChild>> children(const std::string& folder) const = 0;
};

} // namespace brimlet
