#include "core/FileKind.h"
#include "core/Paths.h"
#include "core/StorageBucket.h"
#include "tables/SystemTables.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

namespace brimlet {
namespace {

using Kind = FileKind;
using Bucket = StorageBucket;

TEST(FileKind, isToldByTheLastExtension) {
    struct Case {
        std::string_view name;
        FileKind kind;
    };
    constexpr Case cases[] = {
        {"report.pdf", Kind::document},
        {"archive.TAR.GZ", Kind::archive},
        {"photo.JpEg", Kind::image},
        {"clip.mkv", Kind::video},
        {"kit.exs", Kind::code},
        {"song.band", Kind::audio},
        {"disk.sparsebundle", Kind::diskImage},
        {"a.sparseimage", Kind::diskImage},
        {"x.o", Kind::code},
        {"Program.app", Kind::other},
        {".hidden", Kind::other},
        {".pdf", Kind::other},
        {"..pdf", Kind::document},
        {"name.", Kind::other},
        {"pdf", Kind::other},
        {"a", Kind::other},
        {"", Kind::other},
        {".", Kind::other},
        {"a.abcdefghijkl", Kind::other},
        {"a.abcdefghijklm", Kind::other},
        {"a.sparsebundlex", Kind::other},
        {"a.pdf ", Kind::other},
        {"a.p\xC3\x9F", Kind::other},
        {{"a.p\0f", 5}, Kind::other},
    };
    for (const Case& one : cases)
        EXPECT_EQ(fileKindForName(one.name), one.kind) << one.name;
}

TEST(Categories, areListedInOrderWithDistinctNames) {
    std::set<std::string_view> names;
    for (std::size_t i = 0; i < fileKindCount; ++i) {
        EXPECT_EQ(static_cast<std::size_t>(allFileKinds()[i]), i);
        EXPECT_TRUE(names.insert(look(allFileKinds()[i]).caseName).second);
    }
    names.clear();
    for (std::size_t i = 0; i < storageBucketCount; ++i) {
        EXPECT_EQ(static_cast<std::size_t>(allStorageBuckets()[i]), i);
        EXPECT_TRUE(names.insert(look(allStorageBuckets()[i]).caseName).second);
        EXPECT_FALSE(macosTables().bucketExplanations[i].empty());
    }
    EXPECT_EQ(look(Kind::diskImage).title, "Disk Images & Installers");
    EXPECT_EQ(macosTables().bucketExplanations.back(), "Everything that doesn’t fit another category.");
}

TEST(StorageBucket, ofADirectoryComesFromTheFirstRuleThatApplies) {
    struct Case {
        std::string_view path;
        std::optional<Bucket> inherited;
        std::optional<Bucket> bucket;
    };
    const Case cases[] = {
        // Bundles come before what is inherited, and that before names.
        {"/Users/a/node_modules/x/Tool.app", Bucket::developer, Bucket::applications},
        {"/Users/a/Pictures/P.photoslibrary", {}, Bucket::images},
        {"/Users/a/Pictures/P.photolibrary", Bucket::junk, Bucket::images},
        {"/Users/a/Music/M.logicx", {}, Bucket::audio},
        {"/Users/a/Movies/T.tvlibrary", {}, Bucket::video},
        {"/Users/a/X.xcarchive", Bucket::trash, Bucket::developer},
        {"/Users/a/X.APP", {}, {}},
        {"/Users/a/X.app/Contents", Bucket::applications, Bucket::applications},
        {"/Users/a/X.app/node_modules", Bucket::applications, Bucket::applications},
        {"/Users/a/Library/Application Support/x/node_modules", Bucket::appData, Bucket::developer},
        {"/Library/Frameworks/go", Bucket::system, Bucket::developer},
        {"/Users/a/Documents/app/Pods", {}, Bucket::developer},
        {"/Users/a/pods", {}, {}},
        // Homes.
        {"/Users", {}, {}},
        {"/Users/a", Bucket::appData, Bucket::appData},
        {"/Users/a", Bucket::system, {}},
        {"/Users/a/.Trash", {}, Bucket::trash},
        {"/Users/a/.Trash/x", Bucket::appData, Bucket::trash},
        {"/Users/a/Library", {}, Bucket::appData},
        {"/Users/a/Library/Caches", Bucket::appData, Bucket::junk},
        {"/Users/a/Library/Saved Application State", Bucket::appData, Bucket::junk},
        {"/Users/a/Library/Mail", Bucket::appData, {}},
        {"/Users/a/Library/Mail/V10", {}, {}},
        {"/Users/a/Library/Application Support", Bucket::appData, Bucket::appData},
        {"/Users/a/Applications", {}, {}},
        {"/Users/a/Applications", Bucket::appData, Bucket::appData},
        {"/Users/a/Documents", {}, {}},
        // The rest of the disk.
        {"/", {}, {}},
        {"/", Bucket::system, Bucket::system},
        {"/Applications", {}, {}},
        {"/Library", {}, Bucket::system},
        {"/Library/Caches", Bucket::system, Bucket::junk},
        {"/Library/Fonts", Bucket::system, Bucket::system},
        {"/private", {}, Bucket::system},
        {"/private/var", Bucket::system, Bucket::system},
        {"/private/var/db", Bucket::system, Bucket::system},
        {"/private/var/folders", Bucket::system, Bucket::junk},
        {"/private/tmp", Bucket::system, Bucket::junk},
        {"/private/tmp/x", Bucket::junk, Bucket::junk},
        {"/opt", {}, Bucket::developer},
        {"/usr/local", {}, Bucket::developer},
        {"/cores", {}, Bucket::system},
        {"/.Spotlight-V100", {}, Bucket::system},
        {"/home", {}, {}},
        {"/home", Bucket::appData, Bucket::appData},
    };
    for (const Case& one : cases) {
        const auto components = pathComponents(one.path);
        EXPECT_EQ(macosTables().folders.bucket(lastPathComponent(one.path), components, one.inherited),
                  one.bucket)
            << one.path;
    }
}

TEST(StorageBucket, ofAFileIsItsDirectorysUnlessThatIsOther) {
    EXPECT_EQ(bucketForFile(Bucket::junk, Kind::video), Bucket::junk);
    EXPECT_EQ(bucketForFile(Bucket::other, Kind::diskImage), Bucket::archives);
    EXPECT_EQ(bucketForFile(Bucket::other, Kind::code), Bucket::documents);
    EXPECT_EQ(bucketForFile(Bucket::other, Kind::application), Bucket::applications);
    EXPECT_EQ(bucketForFile(Bucket::other, Kind::other), Bucket::other);
}

TEST(StorageBucket, packageNamesKeepTheirCase) {
    EXPECT_TRUE(macosTables().folders.isPackage("X.app"));
    EXPECT_TRUE(macosTables().folders.isPackage(".app"));
    EXPECT_TRUE(macosTables().folders.isPackage("a.b.prefPane"));
    EXPECT_FALSE(macosTables().folders.isPackage("a.prefpane"));
    EXPECT_FALSE(macosTables().folders.isPackage("app"));
    EXPECT_FALSE(macosTables().folders.isPackage("X.app."));
}

} // namespace
} // namespace brimlet
