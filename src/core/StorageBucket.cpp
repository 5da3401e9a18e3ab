#include "core/StorageBucket.h"

#include <algorithm>
#include <initializer_list>

namespace brimlet {

namespace {

using Components = std::span<const std::string_view>;

// clang-format off
constexpr std::array<CategoryLook, storageBucketCount> looks = {{
    {"applications", "Applications", ".app bundles in Applications and other folders.", "square.grid.2x2.fill", 0x5B8CFF},
    {"documents", "Documents", "PDFs, office files, text and data.", "doc.text.fill", 0x34C3A0},
    {"images", "Images & Photos", "Photos, the Photos library and design files.", "photo.on.rectangle.angled", 0xF5B83D},
    {"video", "Video", "Movies, recordings and video projects.", "film.stack.fill", 0xFF6B8A},
    {"audio", "Music & Audio", "Music, podcasts and sound libraries.", "music.note", 0xB57BFF},
    {"archives", "Installers & Archives", "DMG, PKG, ZIP… usually safe to delete after installing.", "shippingbox.fill", 0xFF9F43},
    {"developer", "Developer", "Xcode, simulators, node_modules, Docker and package caches.", "hammer.fill", 0x3DD6F5},
    {"appData", "App Data", "What apps store in ~/Library: databases, settings, containers.", "tray.full.fill", 0x8E9AAF},
    {"junk", "Caches & Temporary Files", "Caches, logs and temporary files. macOS and apps recreate them.", "sparkles", 0x7BE07B},
    {"trash", "Trash", "Items already in the Trash.", "trash.fill", 0xC9A27E},
    {"system", "System", "macOS files and shared components outside the sealed volume.", "gearshape.2.fill", 0x4A5068},
    {"other", "Other", "Everything that doesn’t fit another category.", "ellipsis.circle.fill", 0xA0A4B0},
}};

struct BundleSuffix {
    std::string_view suffix;
    StorageBucket bucket;
};

constexpr BundleSuffix bundleSuffixes[] = {
    {".app", StorageBucket::applications},
    {".photoslibrary", StorageBucket::images}, {".photolibrary", StorageBucket::images},
    {".musiclibrary", StorageBucket::audio}, {".logicx", StorageBucket::audio}, {".band", StorageBucket::audio},
    {".fcpbundle", StorageBucket::video}, {".imovielibrary", StorageBucket::video}, {".tvlibrary", StorageBucket::video},
    {".xcarchive", StorageBucket::developer},
};

constexpr std::string_view developerNames[] = {
    "node_modules", "DerivedData", "CoreSimulator", ".gradle", ".npm", ".cargo", ".rustup", ".m2", ".cocoapods",
    ".pub-cache", ".nuget", "Pods", ".venv", "venv", "__pycache__", ".next", ".turbo", "Developer", ".docker",
    "com.docker.docker", ".bun", ".pnpm-store", "go",
};

constexpr std::string_view systemTopFolders[] = {
    "System", "cores", "sw", ".Spotlight-V100", ".fseventsd", ".DocumentRevisions-V100",
    ".PKInstallSandboxManager-SystemSoftware", "MobileSoftwareUpdate",
};

constexpr std::string_view packageExtensions[] = {
    "app", "photoslibrary", "musiclibrary", "tvlibrary", "imovielibrary", "fcpbundle", "logicx", "bundle",
    "framework", "plugin", "kext", "xpc", "appex", "xcarchive", "xcodeproj", "xcworkspace", "rtfd", "pages",
    "numbers", "key", "sparsebundle", "photolibrary", "aplibrary", "band", "savedState", "mdimporter",
    "qlgenerator", "prefPane", "saver", "component", "vst", "vst3",
};

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

template <typename Range>
bool holds(const Range& range, std::string_view text) {
    return std::find(std::begin(range), std::end(range), text) != std::end(range);
}

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> texts) {
    return holds(texts, text);
}

std::optional<StorageBucket> bucketOfBundle(std::string_view name) {
    for (const BundleSuffix& bundle : bundleSuffixes)
        if (name.ends_with(bundle.suffix))
            return bundle.bucket;
    return std::nullopt;
}

bool isFirm(std::optional<StorageBucket> inherited) {
    return inherited && *inherited != StorageBucket::appData && *inherited != StorageBucket::system &&
           *inherited != StorageBucket::other;
}

std::optional<StorageBucket> bucketInHomeLibrary(Components components) {
    if (components.size() == 3)
        return StorageBucket::appData;
    const std::string_view part = components[3];
    if (isOneOf(part, {"Caches", "Logs", "HTTPStorages", "Saved Application State"}))
        return StorageBucket::junk;
    if (part == "Developer")
        return StorageBucket::developer;
    if (isOneOf(part, {"Mail", "Messages", "Mobile Documents", "CloudStorage"}))
        return std::nullopt;
    return StorageBucket::appData;
}

std::optional<StorageBucket> bucketBelowUsers(Components components, std::optional<StorageBucket> inherited) {
    if (components.size() >= 3) {
        if (components[2] == ".Trash")
            return StorageBucket::trash;
        if (components[2] == "Library")
            return bucketInHomeLibrary(components);
        if (components[2] == "Applications")
            return inherited;
    }
    return inherited == StorageBucket::appData ? inherited : std::nullopt;
}

StorageBucket bucketBelowLibrary(Components components) {
    if (components.size() > 1 && isOneOf(components[1], {"Caches", "Logs"}))
        return StorageBucket::junk;
    if (components.size() > 1 && components[1] == "Developer")
        return StorageBucket::developer;
    return StorageBucket::system;
}

StorageBucket bucketBelowPrivate(Components components) {
    if (components.size() >= 3 && components[1] == "var" && isOneOf(components[2], {"folders", "log"}))
        return StorageBucket::junk;
    if (components.size() > 1 && components[1] == "tmp")
        return StorageBucket::junk;
    return StorageBucket::system;
}

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

std::optional<StorageBucket> bucketForDirectory(std::string_view name, Components components,
                                                std::optional<StorageBucket> inherited) {
    if (const auto bundle = bucketOfBundle(name))
        return bundle;
    if (isFirm(inherited))
        return inherited;
    if (holds(developerNames, name))
        return StorageBucket::developer;
    if (components.empty())
        return inherited;
    const std::string_view top = components.front();
    if (top == "Users")
        return bucketBelowUsers(components, inherited);
    if (top == "Applications")
        return inherited;
    if (top == "Library")
        return bucketBelowLibrary(components);
    if (top == "private")
        return bucketBelowPrivate(components);
    if (isOneOf(top, {"opt", "usr"}))
        return StorageBucket::developer;
    if (holds(systemTopFolders, top))
        return StorageBucket::system;
    return inherited;
}

StorageBucket bucketForFile(StorageBucket directory, FileKind kind) {
    return directory != StorageBucket::other ? directory : bucketOfKind[static_cast<std::size_t>(kind)];
}

bool isPackageName(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot != std::string_view::npos && holds(packageExtensions, name.substr(dot + 1));
}

} // namespace brimlet
