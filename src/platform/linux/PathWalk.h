// From a path to an open folder, without trusting the path twice.
//
// A path without links is opened by one call that follows none. Else a walk opens one component after the
// other, each relative to the folder before and none through a link; a link among the parents is read and its
// target walked likewise. What it gives is a descriptor and the link-free path that led there. Callable from
// any thread.
#pragma once

#include "platform/linux/Descriptor.h"
#include "platform/Result.h"

#include <string>
#include <string_view>

namespace brimlet {

struct WalkedFolder {
    SharedDescriptor folder; ///< opened with O_PATH: a place to name entries in, not to list or sync
    std::string path;        ///< absolute, without links, without a trailing slash except for "/"
    int made = 0;            ///< how many folders at the end of the path were made by the walk

    std::string pathOf(const std::string& name) const { return (path == "/" ? "" : path) + "/" + name; }
};

/// The folder that holds an entry, and the entry's name in it.
struct WalkedEntry {
    WalkedFolder parent;
    std::string name;
    std::optional<EntryIdentity> reviewed = std::nullopt; ///< what must lie there, where somebody consented
    std::string path() const { return parent.pathOf(name); }
};

enum class MissingFolders { fail, make };

/// Why a path can't be taken as an instruction: it is relative, has "." or ".." in it, or a NUL byte.
Failure refusalOfForm(std::string_view path);

/// Opens a folder by its absolute path.
Result<WalkedFolder> walkToFolder(FileSystemCalls& calls, std::string_view path,
                                  MissingFolders missing = MissingFolders::fail);

/// Opens the folder that holds the entry at a path; the entry itself need not exist. "/" is refused.
Result<WalkedEntry> walkToEntry(FileSystemCalls& calls, std::string_view path,
                                MissingFolders missing = MissingFolders::fail);

/// A descriptor of the same folder that can be listed, locked and synced.
Result<Descriptor> openForListing(FileSystemCalls& calls, int folder, const char* name = ".");

} // namespace brimlet
