// Where the user and the program are at home.
#pragma once

#include <string>

namespace brimlet {

/// Absolute, without a trailing slash (but "/" itself stays). `HOME` decides; without it the user database
/// does.
std::string homeFolder();

/// A folder's path with every link in it resolved; the path itself where that can't be told.
std::string pathWithoutLinks(const std::string& folder);

/// Whether a folder belongs to somebody else than the user for whom this process works: what it wrote there
/// would not be that user's own any more. A folder that isn't there belongs to nobody.
bool belongsToAnother(const std::string& folder);

/// The file that this process runs, without links; empty where that can't be told.
std::string programPath();

} // namespace brimlet
