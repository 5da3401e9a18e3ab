#include "core/FileFilter.h"

#include "support/SyntheticTree.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace brimlet {
namespace {

constexpr double now = 1'800'000'000;
constexpr double day = 86'400;

/// One file, "/System/Volumes/Data/Users/Bob/Movies/Trip.MOV", of 1,000 bytes, changed exactly 30 days ago.
class FileFilterTest : public testing::Test {
protected:
    FileFilterTest()
        : m_tree("/System/Volumes/Data") {
        FileNode* bob = m_tree.directory(m_tree.directory(m_tree.root(), "Users"), "Bob");
        m_file = m_tree.file(m_tree.directory(bob, "Movies"), "Trip.MOV", 1'000, now - 30 * day);
        m_scan = m_tree.finish();
    }

    bool matches(const std::function<void(FileFilter&)>& edit) {
        FileFilter filter;
        edit(filter);
        return filter.matches(*m_file, now);
    }

    test::SyntheticTree m_tree;
    FileNode* m_file = nullptr;
    std::shared_ptr<ScanResult> m_scan;
};

TEST_F(FileFilterTest, everyFieldNarrowsTheListAtItsEdge) {
    struct Case {
        const char* what;
        std::function<void(FileFilter&)> edit;
        bool matches;
    };
    const Case cases[] = {
        {"nothing set", [](FileFilter&) {}, true},
        {"least size equal to the size", [](FileFilter& f) { f.minSize = 1'000; }, true},
        {"least size one above", [](FileFilter& f) { f.minSize = 1'001; }, false},
        {"its kind among others",
         [](FileFilter& f) {
             f.kinds = {FileKind::audio, FileKind::video};
         },
         true},
        {"another kind", [](FileFilter& f) { f.kinds = {FileKind::audio}; }, false},
        {"its bucket", [](FileFilter& f) { f.bucket = StorageBucket::video; }, true},
        {"another bucket", [](FileFilter& f) { f.bucket = StorageBucket::trash; }, false},
        {"changed exactly that long ago", [](FileFilter& f) { f.modifiedOlderThanDays = 30; }, true},
        {"changed later", [](FileFilter& f) { f.modifiedOlderThanDays = 31; }, false},
        {"name in other case", [](FileFilter& f) { f.query = "tRIP.m"; }, true},
        {"a folder's name is not the name", [](FileFilter& f) { f.query = "Movies"; }, false},
        {"path across the last slash", [](FileFilter& f) { f.query = "VIES/tri"; }, true},
        {"path from its beginning", [](FileFilter& f) { f.query = "/users/bob/movies/trip.mov"; }, true},
        {"path within the folders", [](FileFilter& f) { f.query = "s/B"; }, true},
        {"the data volume is no part of the path", [](FileFilter& f) { f.query = "data/u"; }, false},
        {"path beyond the name", [](FileFilter& f) { f.query = "Trip.MOV/"; }, false},
        {"prefix ends inside a folder's name", [](FileFilter& f) { f.pathPrefix = "/Users/Bob/Mov"; }, true},
        {"prefix ends inside the name", [](FileFilter& f) { f.pathPrefix = "/Users/Bob/Movies/Tr"; }, true},
        {"prefix respects case", [](FileFilter& f) { f.pathPrefix = "/users"; }, false},
        {"prefix of a sibling", [](FileFilter& f) { f.pathPrefix = "/Users/Bob/Music/"; }, false},
        {"prefix as scanned", [](FileFilter& f) { f.pathPrefix = "/System/Volumes/Data/Users"; }, false},
        {"hiding what is protected", [](FileFilter& f) { f.hideProtected = true; }, true},
        {"one of two fails",
         [](FileFilter& f) {
             f.query = "trip";
             f.minSize = 2'000;
         },
         false},
    };
    for (const Case& one : cases)
        EXPECT_EQ(matches(one.edit), one.matches) << one.what;
}

TEST_F(FileFilterTest, extremeDatesAndSizesKeepTheirOrder) {
    FileFilter old;
    old.modifiedOlderThanDays = std::numeric_limits<int>::max();
    FileFilter large;
    large.minSize = std::numeric_limits<std::int64_t>::max();
    for (const double modified : {-0x1p63, 0x1p63, 9.2e18, 1e13}) {
        m_file->modified = modified;
        m_file->size = modified < 0 ? large.minSize : -large.minSize - 1;
        EXPECT_EQ(old.matches(*m_file, now), modified < 0) << modified;
        EXPECT_EQ(large.matches(*m_file, now), modified < 0) << m_file->size;
    }
    m_file->size = 0;
    old.modifiedOlderThanDays = std::numeric_limits<int>::min();
    EXPECT_TRUE(old.matches(*m_file, now));
}

TEST_F(FileFilterTest, equalityIncludesWhatMatchingIgnores) {
    FileFilter hiding;
    hiding.hideProtected = true;
    EXPECT_NE(hiding, FileFilter());
    EXPECT_EQ(FileFilter(), FileFilter());
}

TEST(FileMatcher, oneMatcherGivesTheSameAnswersAsAFilterOnEachNode) {
    const auto scan = test::randomScan(7);
    for (const char* query : {"3/file-4", "/", "folder 1", "9.m", "root/folder"}) {
        FileFilter filter;
        filter.query = query;
        filter.pathPrefix = "/root/Folder";
        FileMatcher matcher(filter, now);
        std::string folded;
        for (const FileNode* node : scan->files) {
            std::string path = node->path();
            std::ranges::transform(path, path.begin(), [](unsigned char c) { return std::tolower(c); });
            std::string name(node->name);
            std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
            const bool expected =
                node->path().starts_with("/root/Folder") &&
                (filter.query.find('/') != std::string::npos ? path : name).find(query) != std::string::npos;
            EXPECT_EQ(matcher.matches(*node, name), expected) << query << " in " << node->path();
        }
    }
}

} // namespace
} // namespace brimlet
