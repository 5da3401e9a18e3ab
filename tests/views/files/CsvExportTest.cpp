#include "views/files/CsvExport.h"

#include "support/SyntheticTree.h"
#include "support/TemporaryTree.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>

namespace brimlet {
namespace {

using Table = std::vector<std::vector<std::string>>;

/// Reads comma-separated text as RFC 4180 tells: a quoted field may hold anything, doubled quotes are one.
Table readCsv(const std::string& text) {
    Table rows;
    std::vector<std::string> row;
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (quoted && text[i] == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            field += text[++i];
        } else if (text[i] == '"') {
            quoted = !quoted;
        } else if (!quoted && (text[i] == ',' || text[i] == '\n')) {
            row.push_back(std::exchange(field, {}));
            if (text[i] == '\n')
                rows.push_back(std::exchange(row, {}));
        } else {
            field += text[i];
        }
    }
    EXPECT_FALSE(quoted);
    EXPECT_TRUE(field.empty() && row.empty()) << "the last row has no end";
    return rows;
}

std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t entriesIn(const std::string& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

TEST(CsvExport, quotesEveryFieldButTheHeader) {
    test::SyntheticTree tree("/System/Volumes/Data");
    FileNode* file = tree.file(tree.root(), "a \"b\".mov", 700'000, 1'709'285'400);
    const auto scan = tree.finish();
    file->logicalSize = 699'999;
    EXPECT_EQ(csvText(scan->files),
              "Path,Name,Bytes on disk,Bytes,Kind,Category,Modified\n"
              "\"/a \"\"b\"\".mov\",\"a \"\"b\"\".mov\",\"700000\",\"699999\",\"Video\",\"Video\","
              "\"2024-03-01T09:30:00Z\"\n");
    EXPECT_EQ(csvText({}), "Path,Name,Bytes on disk,Bytes,Kind,Category,Modified\n");
}

TEST(CsvExport, everyNameComesBackThroughAnotherReader) {
    test::SyntheticTree tree;
    std::vector<std::string> names = {"=SUM(A1)",           "+1",       "-x", "@y",      "comma,comma",
                                      "line\nfeed",         "\r",       "\"", "\"\"\",", "caf\xc3\xa9",
                                      "not \xff\xfe utf-8", " spaces ", "\t"};
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '/')
            names.push_back(std::string("byte") + static_cast<char>(byte));
    }
    for (const std::string& name : names)
        tree.file(tree.root(), name, 600'000, -1);
    const auto scan = tree.finish();

    const Table table = readCsv(csvText(scan->files));
    ASSERT_EQ(table.size(), names.size() + 1);
    for (std::size_t i = 0; i < names.size(); ++i) {
        ASSERT_EQ(table[i + 1].size(), 7U);
        EXPECT_EQ(table[i + 1][0], "/root/" + names[i]);
        EXPECT_EQ(table[i + 1][1], names[i]);
        EXPECT_EQ(table[i + 1][6], "1969-12-31T23:59:59Z");
    }
}

TEST(CsvExport, writesAFileThatOthersMayRead) {
    const test::TemporaryTree folder;
    const std::string path = folder.fileWithText("list.csv", "old");
    EXPECT_TRUE(writeAtomically(path, "new"));
    EXPECT_EQ(contents(path), "new");
    EXPECT_EQ(entriesIn(folder.root()), 1U);
    struct stat status {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(status.st_mode & 0777U, 0666U & ~mask);
}

TEST(CsvExport, aFailedWriteLeavesTheOldFileAndNothingElse) {
    const test::TemporaryTree folder;
    const std::string path = folder.fileWithText("list.csv", "old");
    EXPECT_FALSE(writeAtomically(folder.path("missing/list.csv"), "new"));
    folder.directory("taken");
    EXPECT_FALSE(writeAtomically(folder.path("taken"), "new"));

    // A file may grow to 4 KiB only, as on a full disk.
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4'096, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    const bool written = writeAtomically(path, std::string(100'000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);

    EXPECT_FALSE(written);
    EXPECT_EQ(contents(path), "old");
    EXPECT_EQ(entriesIn(folder.root()), 2U);
}

} // namespace
} // namespace brimlet
