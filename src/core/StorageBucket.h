// What space is used for, told by where an item lies and what it is named. Drives the composition of the
// disk. Pure functions over constant tables; callable from any thread.
#pragma once

#include "core/FileKind.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

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

const CategoryLook& look(StorageBucket bucket);

/// How many components of a path its bucket depends on, besides the name.
inline constexpr std::size_t bucketPathDepth = 4;

/// The bucket of a directory; the first rule that applies decides, comparisons are exact and case-sensitive.
/// name        last path component
/// components  non-empty components of the normalised path, `name` included; may be empty for "/"; those
///             beyond bucketPathDepth may be left out
/// inherited   the parent's bucket, empty where there is no parent or the parent is `other`
/// returns     empty where no rule gives a bucket
std::optional<StorageBucket> bucketForDirectory(std::string_view name,
                                                std::span<const std::string_view> components,
                                                std::optional<StorageBucket> inherited);

/// The bucket of a file: its directory's, or its kind's where the directory is `other`.
StorageBucket bucketForFile(StorageBucket directory, FileKind kind);

/// Whether a directory of this name is shown as one item: the text after its last dot is a package extension.
bool isPackageName(std::string_view name);

} // namespace brimlet
