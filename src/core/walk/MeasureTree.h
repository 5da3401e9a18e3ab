// The lean sizing walk: what one file or folder occupies, without building a tree.
#pragma once

#include <cstdint>
#include <string>

namespace brimlet {

struct TreeMeasure {
    std::int64_t bytes = 0; ///< allocated; directories add their own blocks
    std::int64_t files = 0; ///< non-directory entries
    bool operator==(const TreeMeasure&) const = default;
};

/// Sizes one file or folder as `du` would.
/// path    absolute; may be a single file; symbolic links are never followed, other devices never entered
/// returns hard links counted once per call; {0, 0} if it can't be opened
/// thread  any, many at once: walks share one bounded set of threads; blocks on the disk
TreeMeasure measureTree(const std::string& path);

} // namespace brimlet
