#include "support/Program.h"
#include "support/TemporaryTree.h"
#include "json/Json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

using testing::HasSubstr;
using testing::Not;

class JunkCommandTest : public testing::Test {
protected:
    test::TemporaryTree home;

    JunkCommandTest() {
        home.file("Library/Caches/com.foo/a", 50'000);
        home.file(".Trash/caf\xE9\n", 90'000);
        home.file(".Trash/.DS_Store", 20'000);
        home.setTimes(".Trash/.DS_Store", 1, 1'700'000'000);
        home.file("Downloads/new.dmg", 10'000);
    }
    test::Outcome run(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "junk");
        return test::runProgram(BRIMLET_CLI, arguments, {{"HOME", home.root()}});
    }
};

TEST_F(JunkCommandTest, jsonHoldsFindingsWithTheirItems) {
    const test::Outcome result = run({"--rule", "user-caches", "--rule=trash", "--json"});
    EXPECT_EQ(result.status, 0) << result.error;
    const auto document = readJson(result.output);
    ASSERT_TRUE(document && document->is_array() && document->size() == 2) << result.output;
    const Json& trash = document->at(0);
    EXPECT_EQ(trash["rule"], "trash");
    ASSERT_EQ(trash["items"].size(), 2U);
    EXPECT_EQ(bytesOf(trash["items"][0]["id"]), home.path(".Trash/caf\xE9\n"));
    EXPECT_EQ(trash["items"][1]["modified"], "2023-11-14T22:13:20Z");
    EXPECT_EQ(trash["items"][1]["fileCount"], 1);
    EXPECT_EQ(trash["total"],
              trash["items"][0]["size"].get<std::int64_t>() + trash["items"][1]["size"].get<std::int64_t>());
    EXPECT_EQ(document->at(1)["rule"], "user-caches");
}

TEST_F(JunkCommandTest, tableNamesRulesAndLargestItems) {
    const test::Outcome result = run({"--top", "1"});
    EXPECT_EQ(result.status, 0) << result.error;
    EXPECT_THAT(result.output, HasSubstr("Trash  Safe  trash, 2 items\n"));
    EXPECT_THAT(result.output, HasSubstr("~/.Trash/caf\\xe9\\n\n")) << "escaped for the terminal";
    EXPECT_THAT(result.output, HasSubstr("… and 1 more"));
    EXPECT_THAT(result.output, HasSubstr("in 3 items"));
    EXPECT_THAT(result.output, Not(HasSubstr("new.dmg")));
}

TEST_F(JunkCommandTest, emptyHomeAndUnknownRuleAreSaidClearly) {
    const test::TemporaryTree empty;
    const std::map<std::string, std::string> environment = {{"HOME", empty.root()}};
    EXPECT_EQ(test::runProgram(BRIMLET_CLI, {"junk", "--rule", "trash"}, environment).output,
              "No junk found.\n");
    EXPECT_EQ(test::runProgram(BRIMLET_CLI, {"junk", "--rule", "trash", "--json"}, environment).output,
              "[]\n");
    const test::Outcome unknown = run({"--rule", "nonsense"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_THAT(unknown.error, HasSubstr("user-caches, user-logs"));
    EXPECT_EQ(unknown.output, "");
}

} // namespace
} // namespace brimlet
