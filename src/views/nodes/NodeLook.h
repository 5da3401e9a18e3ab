// How a node presents itself in words and symbols. The texts are for showing only: what is not UTF-8 is
// replaced.
#pragma once

#include "core/FileNode.h"

#include <QString>

namespace brimlet {

/// The last component of the node's path; for a root the last one of the path it was scanned from, and "Disk"
/// for "/".
QString displayName(const FileNode& node);

/// A file's extension in capitals, or its kind's title where it has none.
QString kindText(const FileNode& node);

/// A relative date; "—" for an unknown time.
QString relativeTime(double secondsSince1970);

} // namespace brimlet
