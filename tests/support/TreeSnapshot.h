// All that makes up a tree on the disk, as comparable text.
#pragma once

#include <map>
#include <string>

namespace brimlet::test {

/// By path relative to `path` ("" for itself): kind, mode, size, time of change, link target and content of
/// each entry. Empty when nothing is there. Links are not followed.
std::map<std::string, std::string> snapshotOf(const std::string& path);

} // namespace brimlet::test
