// Contents and metadata of one file, from one open descriptor to another. Each gives 0 or a negative errno.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <stop_token>

namespace brimlet {

/// Copies what is written in a file and leaves its holes holes. -ECANCELED when told to stop.
int copyContents(FileSystemCalls& calls, int from, int to, std::int64_t bytes, const std::stop_token& stop);

/// What copies could not be given because their disk can't store it.
struct CopyLosses {
    bool attributes = false; ///< extended ones, owners, modes or times
    bool hardLinks = false;  ///< several names of one file became several files
};

/// Gives a copy its original's owner, extended attributes, mode and times, in an order in which none undoes
/// another. What the disk can't store, or this user may not set, is noted and left; without the owner go
/// set-user-id and file capabilities. Attributes that only the system sets are left without a note.
int copyMetadata(FileSystemCalls& calls, int from, const FileStatus& original, int to, CopyLosses& losses);

/// Owner and times of an entry that can't be opened: a link or a special file.
int copyMetadataByName(FileSystemCalls& calls, const FileStatus& original, int folder, const char* name,
                       CopyLosses& losses);

} // namespace brimlet
