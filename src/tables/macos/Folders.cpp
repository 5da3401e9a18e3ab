// What folders of a Mac are used for, and which are shown as one item.
#include "tables/macos/MacosTables.h"

namespace brimlet::macos {

namespace {

using enum BucketSource;
using Bucket = StorageBucket;

// clang-format off

constexpr BucketSuffix bucketSuffixes[] = {
    {".app", Bucket::applications},
    {".photoslibrary", Bucket::images}, {".photolibrary", Bucket::images},
    {".musiclibrary", Bucket::audio}, {".logicx", Bucket::audio}, {".band", Bucket::audio},
    {".fcpbundle", Bucket::video}, {".imovielibrary", Bucket::video}, {".tvlibrary", Bucket::video},
    {".xcarchive", Bucket::developer},
};

constexpr std::string_view developerNames[] = {
    "node_modules", "DerivedData", "CoreSimulator", ".gradle", ".npm", ".cargo", ".rustup", ".m2", ".cocoapods",
    ".pub-cache", ".nuget", "Pods", ".venv", "venv", "__pycache__", ".next", ".turbo", "Developer", ".docker",
    "com.docker.docker", ".bun", ".pnpm-store", "go",
};

constexpr BucketPlace bucketPlaces[] = {
    {"/Users", parentIfAppData},
    {"/Users/*/.Trash", place, Bucket::trash},
    {"/Users/*/Library", place, Bucket::appData},
    {"/Users/*/Library/Caches", place, Bucket::junk},
    {"/Users/*/Library/Logs", place, Bucket::junk},
    {"/Users/*/Library/HTTPStorages", place, Bucket::junk},
    {"/Users/*/Library/Saved Application State", place, Bucket::junk},
    {"/Users/*/Library/Developer", place, Bucket::developer},
    {"/Users/*/Library/Mail", none},
    {"/Users/*/Library/Messages", none},
    {"/Users/*/Library/Mobile Documents", none},
    {"/Users/*/Library/CloudStorage", none},
    {"/Users/*/Applications", parent},
    {"/Applications", parent},
    {"/Library", place, Bucket::system},
    {"/Library/Caches", place, Bucket::junk},
    {"/Library/Logs", place, Bucket::junk},
    {"/Library/Developer", place, Bucket::developer},
    {"/private", place, Bucket::system},
    {"/private/var/folders", place, Bucket::junk},
    {"/private/var/log", place, Bucket::junk},
    {"/private/tmp", place, Bucket::junk},
    {"/opt", place, Bucket::developer},
    {"/usr", place, Bucket::developer},
    {"/System", place, Bucket::system},
    {"/cores", place, Bucket::system},
    {"/sw", place, Bucket::system},
    {"/.Spotlight-V100", place, Bucket::system},
    {"/.fseventsd", place, Bucket::system},
    {"/.DocumentRevisions-V100", place, Bucket::system},
    {"/.PKInstallSandboxManager-SystemSoftware", place, Bucket::system},
    {"/MobileSoftwareUpdate", place, Bucket::system},
};

constexpr std::string_view packageExtensions[] = {
    "app", "photoslibrary", "musiclibrary", "tvlibrary", "imovielibrary", "fcpbundle", "logicx", "bundle",
    "framework", "plugin", "kext", "xpc", "appex", "xcarchive", "xcodeproj", "xcworkspace", "rtfd", "pages",
    "numbers", "key", "sparsebundle", "photolibrary", "aplibrary", "band", "savedState", "mdimporter",
    "qlgenerator", "prefPane", "saver", "component", "vst", "vst3",
};

// clang-format on

} // namespace

const FolderTables folders = {
    .bucketSuffixes = bucketSuffixes,
    .developerNames = developerNames,
    .bucketPlaces = bucketPlaces,
    .packageExtensions = packageExtensions,
    .applicationSuffix = ".app",
};

} // namespace brimlet::macos
