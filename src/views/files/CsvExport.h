// A list of files as comma-separated text. Names of any bytes come through unchanged.
#pragma once

#include "core/FileNode.h"

#include <span>
#include <string>
#include <string_view>

namespace brimlet {

/// The whole text: a header, then a row for each node in the order given. Kind and category are in the user's
/// language. Reads only what never changes after a scan, so any thread that keeps the ScanResult may ask.
std::string csvText(std::span<FileNode* const> files);

/// Writes through a new file beside `path` that then takes its place, so that `path` holds all of `bytes` or
/// what it held before.
/// returns  whether it was written; nothing is left behind if not
/// thread   any; blocks on the disk
bool writeAtomically(const std::string& path, std::string_view bytes);

} // namespace brimlet
