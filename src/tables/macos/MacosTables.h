// The tables of a Mac, one file each.
#pragma once

#include "tables/SystemTables.h"

namespace brimlet::macos {

extern const FolderTables folders;
extern const SafetyTables safety;
extern const SystemWords words;
extern const std::array<std::string_view, storageBucketCount> bucketExplanations;

/// The rules live as long as the program.
JunkTables junk();

} // namespace brimlet::macos
