// Contents and metadata of one file, from one open descriptor to another. Each gives 0 or a negative errno.
#pragma once

#include "platform/linux/FileSystemCalls.h"

namespace brimlet {

/// Copies what is written in a file and leaves its holes holes.
int copyContents(FileSystemCalls& calls, int from, int to, std::int64_t bytes);

/// Gives a copy its original's owner, extended attributes, mode and times, in an order in which none undoes
/// another. An owner that may not be set is left, and set-user-id with it; so are attributes that only the
/// system sets.
int copyMetadata(FileSystemCalls& calls, int from, const FileStatus& original, int to);

/// Owner and times of an entry that can't be opened: a link or a special file.
int copyMetadataByName(FileSystemCalls& calls, const FileStatus& original, int folder, const char* name);

} // namespace brimlet
