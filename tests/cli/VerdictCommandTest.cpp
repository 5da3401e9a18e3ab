#include "support/Program.h"
#include "json/Json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

using testing::HasSubstr;

test::Outcome runVerdict(std::vector<std::string> arguments, std::string_view input = {}) {
    arguments.insert(arguments.begin(), "verdict");
    return test::runProgram(BRIMLET_CLI, arguments, {{"HOME", "/Users/me"}}, input);
}

TEST(VerdictCommandTest, nullListIsAnsweredInItsOrder) {
    const std::vector<std::string> paths = {"/usr/bin/ls", "/Users/me/Library/Caches/com.foo",
                                            "/System/Volumes/Data/Users/me/.Trash/\xFF\n x", "/a/b",
                                            "/usr/bin/ls"};
    std::string input;
    for (const std::string& path : paths)
        input += path + '\0';
    input.pop_back();
    const test::Outcome result = runVerdict({"--null", "--json"}, input);
    EXPECT_EQ(result.status, 0) << result.error;
    const auto document = readJson(result.output);
    ASSERT_TRUE(document && document->size() == paths.size()) << result.output;
    const std::vector<const char*> risks = {"protected", "safe", "safe", "review", "protected"};
    const std::vector<const char*> rules = {nullptr, "user-caches", "trash", nullptr, nullptr};
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const Json& entry = document->at(i);
        EXPECT_EQ(bytesOf(entry["path"]), paths[i]);
        EXPECT_EQ(entry["risk"], risks[i]);
        EXPECT_FALSE(entry["reason"].get<std::string>().empty());
        EXPECT_EQ(entry.contains("rule") ? entry["rule"] : Json(nullptr),
                  rules[i] != nullptr ? Json(rules[i]) : Json(nullptr));
    }
}

TEST(VerdictCommandTest, peopleSeeRiskPathReasonAndRule) {
    EXPECT_EQ(
        runVerdict({"/usr/bin/x\x1b[2J", "/Users/me/.Trash/a"}).output,
        "Protected  /usr/bin/x\\x1b[2J\n"
        "           macOS tools.\n"
        "Safe       /Users/me/.Trash/a\n"
        "           Everything you’ve already moved to the Trash. Emptying it actually frees the space. "
        "(trash)\n");
}

TEST(VerdictCommandTest, nothingToJudgeIsWrongUseButAnEmptyListIsNot) {
    EXPECT_EQ(runVerdict({}).status, 2);
    EXPECT_THAT(runVerdict({}).error, HasSubstr("--null"));
    EXPECT_EQ(runVerdict({"--null", "/a/b"}).status, 2);
    EXPECT_EQ(runVerdict({"--null", "--json"}).output, "[]\n");
    EXPECT_EQ(runVerdict({"--null"}).status, 0);
}

} // namespace
} // namespace brimlet
