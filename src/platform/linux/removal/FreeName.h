// A name that nothing in a folder bears yet.
#pragma once

#include "platform/linux/FileSystemCalls.h"
#include "platform/Result.h"

#include <string>

namespace brimlet {

/// The number of a free numberedName() in an open folder, found in a few looks also where thousands are
/// taken: the least one unless there are gaps. taken   numbers up to this one are taken; 0 when nothing is
/// known
Result<unsigned> freeNumber(FileSystemCalls& calls, int folder, const std::string& name, unsigned taken);

} // namespace brimlet
