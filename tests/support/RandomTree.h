// A tree of everything a file system may hold, drawn from a seed: the same seed gives the same tree.
#pragma once

#include "support/TemporaryTree.h"

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace brimlet::test {

struct RandomTree {
    /// Adds to a tree: files small, large, sparse and hard-linked within and across folders, links to
    /// files, folders and nothing, FIFOs, sockets, empty, deep, unreadable and unsearchable folders, folders
    /// whose names have a meaning, names of any bytes.
    RandomTree(const TemporaryTree& tree, std::uint32_t seed);

    std::vector<std::string> folders; ///< relative paths, the root ("") first
    std::unordered_set<std::string>
        excluded; ///< a few of them, with one that doesn't exist, relative likewise
};

} // namespace brimlet::test
