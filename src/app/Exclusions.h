// The exclusion list: folders that no scan enters, kept as one text of paths joined by line feeds.
// Pure functions; a path is bytes, and one that holds a line feed can't be excluded.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// The paths of a stored list, in the order they were added, empty lines dropped.
std::vector<std::string> excludedPaths(std::string_view raw);

/// What a scan compares against.
std::unordered_set<std::string> excludedSet(std::string_view raw);

/// Whether a path can stand in the list.
bool canBeExcluded(std::string_view folder);

/// The list with a folder's normalised path at its end. A path that can't stand there changes nothing.
std::string withExcludedPath(std::string_view raw, std::string_view folder);

/// The list without the path at a position; the same list where there is none.
std::string withoutExcludedPath(std::string_view raw, std::size_t position);

} // namespace brimlet
