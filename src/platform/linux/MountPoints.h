// Where disks are mounted.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// The mount points in the text of /proc/thread-self/mountinfo, unescaped.
std::vector<std::string> mountPointsFromText(std::string_view text);

/// Whether something is mounted below a folder, given by its path without links. False where the system
/// doesn't tell.
bool holdsMountPoint(std::string_view folder);

} // namespace brimlet
