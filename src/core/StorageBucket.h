// What space is used for. Drives the composition of the disk.
#pragma once

#include "core/FileKind.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace brimlet {

enum class StorageBucket : std::uint8_t {
    applications,
    documents,
    images,
    video,
    audio,
    archives,
    developer,
    appData,
    junk,
    trash,
    system,
    other,
};

inline constexpr std::size_t storageBucketCount = 12;

/// All buckets in declaration order.
const std::array<StorageBucket, storageBucketCount>& allStorageBuckets();

/// What a bucket holds is told in the words of each system: SystemTables.
const CategoryLook& look(StorageBucket bucket);

/// The bucket of a file: its directory's, or its kind's where the directory is `other`. Any thread.
StorageBucket bucketForFile(StorageBucket directory, FileKind kind);

} // namespace brimlet
