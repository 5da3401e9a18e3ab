// The scan and the measurement as one plain fts loop: slow, single-threaded and easy to check by reading. The
// oracle that the parallel walks are compared with.
#pragma once

#include "core/ScanResult.h"
#include "core/walk/MeasureTree.h"

#include <memory>
#include <string>
#include <unordered_set>

namespace brimlet::test {

std::shared_ptr<ScanResult> ftsScan(const std::string& rootPath,
                                    const std::unordered_set<std::string>& excluded);

TreeMeasure ftsMeasure(const std::string& path);

/// The first fields in which two results differ, or an empty text. Times of the scans themselves are left
/// out.
std::string differences(const ScanResult& actual, const ScanResult& expected);

} // namespace brimlet::test
