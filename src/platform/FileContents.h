// A whole small file at once.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace brimlet {

/// The bytes of a regular file, links followed. Empty where it can't be read, is no regular file, or is
/// longer than `limit` bytes. Never waits on a pipe or a device.
std::optional<std::string> fileContents(const std::string& path, std::size_t limit);

} // namespace brimlet
