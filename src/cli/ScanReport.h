// What `scan` shows to people.
#pragma once

#include "cli/Terminal.h"
#include "core/ScanResult.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// The folders that hold the most, the root left out, largest first. A folder that holds hardly more than one
/// folder in it is left out for that one, so that a list isn't filled with one branch.
std::vector<const FileNode*> largestFolders(const ScanResult& result, std::size_t limit);

/// The largest files, largest first.
std::vector<const FileNode*> largestFiles(const ScanResult& result, std::size_t limit);

/// Total, counts, space by bucket, the largest folders and files, fitted to the terminal. Ends with a line
/// feed.
/// top  how many folders and files at most
std::string scanReport(const ScanResult& result, std::size_t top, std::string_view homeFolder,
                       const Terminal& terminal);

} // namespace brimlet
