// The user's home folder.
#pragma once

#include <string>

namespace brimlet {

/// Absolute, without a trailing slash (but "/" itself stays). `HOME` decides; without it the user database
/// does.
std::string homeFolder();

/// A folder's path with every link in it resolved; the path itself where that can't be told.
std::string pathWithoutLinks(const std::string& folder);

} // namespace brimlet
