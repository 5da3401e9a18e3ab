// A rename that never overwrites.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <string>

namespace brimlet {

/// Gives an entry a new place and name unless that name is taken. 0 or a negative errno: -EEXIST when taken,
/// -EXDEV when the place is on another device. Where the file system has no exclusive rename it is put
/// together from steps that are exclusive themselves. A folder of the user's own without write permission is
/// moved all the same and keeps its mode.
int renameExclusively(FileSystemCalls& calls, int folder, const std::string& name, int newFolder,
                      const std::string& newName);

} // namespace brimlet
