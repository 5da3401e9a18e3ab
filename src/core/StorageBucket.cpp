#include "core/StorageBucket.h"

namespace brimlet {

namespace {

// clang-format off
constexpr std::array<CategoryLook, storageBucketCount> looks = {{
    {"applications", "Applications", "square.grid.2x2.fill", 0x5B8CFF},
    {"documents", "Documents", "doc.text.fill", 0x34C3A0},
    {"images", "Images & Photos", "photo.on.rectangle.angled", 0xF5B83D},
    {"video", "Video", "film.stack.fill", 0xFF6B8A},
    {"audio", "Music & Audio", "music.note", 0xB57BFF},
    {"archives", "Installers & Archives", "shippingbox.fill", 0xFF9F43},
    {"developer", "Developer", "hammer.fill", 0x3DD6F5},
    {"appData", "App Data", "tray.full.fill", 0x8E9AAF},
    {"junk", "Caches & Temporary Files", "sparkles", 0x7BE07B},
    {"trash", "Trash", "trash.fill", 0xC9A27E},
    {"system", "System", "gearshape.2.fill", 0x4A5068},
    {"other", "Other", "ellipsis.circle.fill", 0xA0A4B0},
}};

constexpr std::array<StorageBucket, fileKindCount> bucketOfKind = {
    StorageBucket::documents,    // document
    StorageBucket::images,       // image
    StorageBucket::video,        // video
    StorageBucket::audio,        // audio
    StorageBucket::archives,     // archive
    StorageBucket::archives,     // diskImage
    StorageBucket::documents,    // code
    StorageBucket::applications, // application
    StorageBucket::other,        // other
};
// clang-format on

} // namespace

const std::array<StorageBucket, storageBucketCount>& allStorageBuckets() {
    static constexpr std::array<StorageBucket, storageBucketCount> all = {
        StorageBucket::applications, StorageBucket::documents, StorageBucket::images,
        StorageBucket::video,        StorageBucket::audio,     StorageBucket::archives,
        StorageBucket::developer,    StorageBucket::appData,   StorageBucket::junk,
        StorageBucket::trash,        StorageBucket::system,    StorageBucket::other,
    };
    return all;
}

const CategoryLook& look(StorageBucket bucket) {
    return looks[static_cast<std::size_t>(bucket)];
}

StorageBucket bucketForFile(StorageBucket directory, FileKind kind) {
    return directory != StorageBucket::other ? directory : bucketOfKind[static_cast<std::size_t>(kind)];
}

} // namespace brimlet
