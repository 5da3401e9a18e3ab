// The user's Trash: the folder ".Trash" of the home folder.
#pragma once

#include "platform/linux/PathWalk.h"

namespace brimlet {

/// Opens the Trash, and makes it, closed to others, when there is none. Refused when it is a link, no folder,
/// or not the user's own.
Result<WalkedFolder> openTrash(FileSystemCalls& calls, std::string_view homeFolder);

} // namespace brimlet
