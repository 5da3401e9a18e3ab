// The forms a path takes: as scanned, normalised, and shown. A path is bytes; nothing here looks at the disk.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// Where the writable volume of the system disk is mounted; firmlinks show the same files without this
/// prefix.
inline constexpr std::string_view dataVolumePrefix = "/System/Volumes/Data";

/// Without the data volume's prefix: the prefix itself becomes "/", a path below it keeps its leading "/",
/// any other path stays. Returns a view into `path` or into a constant.
std::string_view normalisedPath(std::string_view path);

/// What is shown to the user: normalised, and with the home folder as "~".
std::string displayPath(std::string_view path, std::string_view homeFolder);

/// The non-empty pieces between slashes. The views point into `path`.
std::vector<std::string_view> pathComponents(std::string_view path);

/// What follows the last slash; the whole path where there is none, and empty for "/".
std::string_view lastPathComponent(std::string_view path);

/// What follows the last dot of a name, unless that dot is its first byte; empty where there is none.
std::string_view pathExtension(std::string_view name);

/// Whether `path` lies below `folder`: it begins with it and a slash. A folder is not below itself.
bool isBelow(std::string_view path, std::string_view folder);

} // namespace brimlet
