// Joins what the threads of a scan have built into the result of the sequential walk.
#pragma once

#include "core/ScanResult.h"
#include "core/walk/ScanPart.h"

#include <deque>
#include <memory>

namespace brimlet {

/// Sums sizes up the tree, lists the large files in walk order and leaves a file with several hard links at
/// the first of its paths only. Takes over the memory of the parts. The times of the result stay unset.
std::shared_ptr<ScanResult> assembleScan(FileNode& root, std::deque<ScanPart>& parts);

} // namespace brimlet
