// brimlet-cli as its users meet it: the built program, its output and its exit status.

#include "cli/Terminal.h"
#include "core/walk/MeasureTree.h"
#include "core/walk/Scanner.h"
#include "support/Program.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"
#include "json/Json.h"

#include <algorithm>
#include <clocale>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace brimlet {
namespace {

using test::Outcome;
using test::runProgram;
using test::TemporaryTree;
using testing::HasSubstr;
using testing::Not;

Outcome cli(const std::vector<std::string>& arguments) {
    return runProgram(BRIMLET_CLI, arguments);
}

TEST(Cli, wrongUseEndsWithOneSentenceAndStatus2) {
    const TemporaryTree tree;
    tree.file("file");
    tree.symbolicLink("link", tree.root());
    const std::vector<std::vector<std::string>> uses = {
        {},
        {"no-such-command"},
        {"scan", "--no-such-option"},
        {"scan", "--files", tree.root()},
        {"scan", "--top", "many", tree.root()},
        {"scan", tree.path("nothing")},
        {"scan", tree.path("file")},
        {"scan", tree.path("link")},
        {"measure"},
        {"measure", tree.path("nothing")},
    };
    for (const auto& use : uses) {
        const Outcome outcome = cli(use);
        SCOPED_TRACE(testing::PrintToString(use));
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(std::count(outcome.error.begin(), outcome.error.end(), '\n'), 1) << outcome.error;
        EXPECT_TRUE(outcome.error.starts_with("brimlet-cli: ")) << outcome.error;
    }
}

TEST(Cli, helpAndVersionAreAnsweredOnStandardOutput) {
    EXPECT_EQ(cli({"--version"}).status, 0);
    for (const char* command : {"scan", "measure"}) {
        const Outcome help = cli({command, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_THAT(help.output, HasSubstr("Examples:"));
    }
}

TEST(Cli, scanJsonHoldsTheFieldsOfTheResult) {
    const TemporaryTree tree;
    tree.file("a/large.mov", 600'000);
    tree.file("a/b/odd \"\\\n\x1b\xff.pdf", 700'000);
    tree.file("a/small.txt", 5'000);
    tree.hardLink("link.mov", "a/large.mov");
    const auto expected = Scanner(macosTables().folders).scan(tree.root(), {}, {});
    const Outcome outcome = cli({"scan", tree.root(), "--json", "--files", "--tree"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
    const std::optional<Json> document = readJson(outcome.output);
    ASSERT_TRUE(document) << outcome.output;
    EXPECT_EQ(bytesOf(document->at("rootPath")), tree.root());
    EXPECT_EQ(document->at("totalFiles"), 3);
    EXPECT_EQ(document->at("totalDirectories"), 3);
    EXPECT_EQ(document->at("unreadableDirectories"), 0);
    EXPECT_EQ(document->at("hardLinksSkipped"), 1);
    EXPECT_GT(document->at("duration").get<double>(), 0);
    EXPECT_THAT(document->at("finishedAt").get<std::string>(), testing::MatchesRegex("....-..-..T..:..:..Z"));
    EXPECT_EQ(document->at("kindCounts"), (Json{{"document", 2}, {"video", 1}}));
    EXPECT_EQ(document->at("kindTotals").at("video"), expected->kindTotals[FileKind::video]);
    EXPECT_EQ(document->at("bucketTotals").at("documents"), expected->bucketTotals[StorageBucket::documents]);

    const Json& root = document->at("root");
    EXPECT_EQ(root.at("size"), expected->root->size);
    EXPECT_EQ(root.at("fileCount"), 3);
    EXPECT_EQ(root.at("isDirectory"), true);
    ASSERT_EQ(document->at("files").size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        const Json& file = document->at("files")[i];
        EXPECT_EQ(bytesOf(file.at("path")), expected->files[i]->path());
        EXPECT_EQ(bytesOf(file.at("name")), expected->files[i]->name);
        EXPECT_EQ(file.at("bucket"), look(expected->files[i]->bucket).caseName);
        EXPECT_EQ(file.at("modified"), expected->files[i]->modified);
        EXPECT_FALSE(file.contains("children"));
    }
    ASSERT_EQ(root.at("children").size(), expected->root->children.size());
    EXPECT_EQ(root.at("children")[0].at("size"), expected->root->children[0]->size);
}

TEST(Cli, scanJsonLeavesOutFilesAndTreeUnlessAsked) {
    const TemporaryTree tree;
    tree.file("a/large", 600'000);
    const std::optional<Json> document = readJson(cli({"scan", tree.root(), "--json"}).output);
    ASSERT_TRUE(document);
    EXPECT_FALSE(document->contains("files"));
    EXPECT_FALSE(document->at("root").contains("children"));
}

TEST(Cli, scanWithoutFolderTakesTheHomeFolder) {
    const TemporaryTree tree;
    tree.file("a/file", 10);
    const Outcome outcome = runProgram(BRIMLET_CLI, {"scan"}, {{"HOME", tree.root()}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("  ~\n1 file in 2 folders"));
}

TEST(Cli, excludedFoldersAreLeftOut) {
    const TemporaryTree tree;
    tree.file("a/large", 600'000);
    tree.file("b/large", 700'000);
    const Outcome outcome = cli({"scan", "--exclude", tree.path("a/"), tree.root(), "--exclude", "/nowhere"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, Not(HasSubstr("a/large")));
    EXPECT_THAT(outcome.output, HasSubstr("b/large"));
}

TEST(Cli, whatCantBeReadGivesStatus1) {
    const TemporaryTree tree;
    tree.file("closed/file", 10);
    tree.file("open/file", 10);
    chmod(tree.path("closed").c_str(), 0);
    const Outcome outcome = cli({"scan", tree.root()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("1 item could not be read"));
    EXPECT_EQ(cli({"scan", tree.path("closed")}).status, 2) << "nothing could be done";
    EXPECT_EQ(cli({"measure", tree.path("open"), tree.path("nothing")}).status, 1);
}

TEST(Cli, humanOutputHoldsNoControlCharactersAndFitsTheWidth) {
    const TemporaryTree tree;
    tree.file("evil\x1b[31m\n\xff\xe2\x80\xae name/" + std::string(200, 'x') + "/file.mov", 600'000);
    const Outcome outcome =
        runProgram(BRIMLET_CLI, {"scan", tree.root()}, {{"COLUMNS", "60"}, {"LC_ALL", "C"}});
    EXPECT_THAT(outcome.output, HasSubstr("evil\\x1b[3"));
    std::size_t start = 0;
    while (start < outcome.output.size()) {
        const std::size_t end = outcome.output.find('\n', start);
        const std::string line = outcome.output.substr(start, end - start);
        EXPECT_EQ(printable(line), line);
        EXPECT_LE(columnsOf(line), 60U) << line;
        start = end + 1;
    }
}

TEST(Cli, measureGivesWhatMeasureTreeGives) {
    const TemporaryTree tree;
    tree.file("a/one", 10'000);
    tree.file("a/two", 10'000);
    const TreeMeasure expected = measureTree(tree.path("a"));
    const std::optional<Json> document =
        readJson(cli({"measure", "--json", tree.path("a"), tree.path("a/one")}).output);
    ASSERT_TRUE(document);
    ASSERT_EQ(document->size(), 2U);
    EXPECT_EQ(document->at(0), (Json{{"path", tree.path("a")}, {"bytes", expected.bytes}, {"files", 2}}));
    EXPECT_EQ(document->at(1).at("files"), 1);
}

TEST(Cli, interruptionCancelsAScanWithStatus130) {
    // The whole disk takes long enough to be interrupted at its start.
    const Outcome outcome = test::runInterrupted(BRIMLET_CLI, {"scan", "/", "--top", "1"});
    EXPECT_EQ(outcome.status, 130);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.error, "brimlet-cli: The scan was cancelled.\n");
}

TEST(Terminal, textIsCutInItsMiddleByColumns) {
    struct Case {
        std::string_view text;
        std::size_t columns;
        std::string_view fitted;
    };
    constexpr Case cases[] = {
        {"short", 5, "short"},          {"abcdefghij", 7, "ab…ghij"}, {"abc", 1, "…"},      {"abc", 0, ""},
        {"日本語文字列", 7, "日…字列"}, {"éééééé", 4, "é…éé"},        {"a日本", 4, "a…本"},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(fitted(one.text, one.columns), one.fitted) << one.text;
        EXPECT_LE(columnsOf(fitted(one.text, one.columns)), one.columns);
    }
}

TEST(Terminal, barsShowAnythingAboveNothing) {
    EXPECT_EQ(bar(0, 10), "");
    EXPECT_EQ(bar(-1, 10), "");
    EXPECT_EQ(bar(0.00001, 10), "▏");
    EXPECT_EQ(bar(0.5, 3), "█▌");
    EXPECT_EQ(bar(7, 3), "███");
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return RUN_ALL_TESTS();
}
