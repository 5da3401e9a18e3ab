// A scan as one JSON document. Nodes are written one by one, without a document in memory and without
// recursion, so that neither millions of nodes nor chains of thousands of folders are a burden.
#pragma once

#include "core/ScanResult.h"

#include <cstdio>

namespace brimlet {

struct ScanJsonParts {
    bool files = false; ///< a list of all file nodes with their paths
    bool tree = false;  ///< `children` in every directory
};

/// Writes the fields of the result by their names, and a line feed. Errors stay in the state of `output`.
void writeScanJson(std::FILE* output, const ScanResult& result, const ScanJsonParts& parts);

} // namespace brimlet
