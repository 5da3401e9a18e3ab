// Preferences through the real file, and the exclusion list.
#include "app/Preferences.h"
#include "app/Exclusions.h"
#include "platform/linux/FilePreferencesStore.h"
#include "support/Privileges.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>

namespace brimlet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* fileName = "Preferences/com.brimlet.mac.json";

std::string contents(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Preferences, neverWrittenKeysGiveTheirDefaults) {
    const test::TemporaryTree tree;
    FilePreferencesStore store(tree.path(fileName));
    const Preferences preferences(store);
    EXPECT_EQ(preferences.excludedPaths(), "");
    EXPECT_FALSE(preferences.permanentDelete());
    EXPECT_FALSE(preferences.accessOnboardingSkipped());
    EXPECT_EQ(preferences.cleanSchedule(), CleanSchedule::off);
    EXPECT_EQ(preferences.lowSpaceGB(), 10);
    EXPECT_TRUE(preferences.menuBar());
    EXPECT_EQ(preferences.lastAutoClean(), std::nullopt);
    EXPECT_EQ(preferences.lastAutoCleanBytes(), 0);
    EXPECT_EQ(preferences.explorerMode(), "list");
    EXPECT_FALSE(tree.exists(fileName));
}

TEST(Preferences, keepTheirTypesOverARestart) {
    const test::TemporaryTree tree;
    const PreferenceDate moment(std::chrono::milliseconds(1'700'000'000'123));
    {
        FilePreferencesStore store(tree.path(fileName));
        Preferences preferences(store);
        preferences.setExcludedPaths("/Users/sam/caf\xe9\n/b");
        preferences.setPermanentDelete(true);
        preferences.setLowSpaceGB(0);
        preferences.setMenuBar(false);
        preferences.setCleanSchedule(CleanSchedule::weekly);
        preferences.setLastAutoClean(moment, 123'456'789'012);
    }
    FilePreferencesStore store(tree.path(fileName));
    const Preferences preferences(store);
    EXPECT_EQ(preferences.excludedPaths(), "/Users/sam/caf\xe9\n/b");
    EXPECT_TRUE(preferences.permanentDelete());
    EXPECT_EQ(preferences.lowSpaceGB(), 0);
    EXPECT_FALSE(preferences.menuBar());
    EXPECT_EQ(preferences.cleanSchedule(), CleanSchedule::weekly);
    EXPECT_EQ(preferences.lastAutoClean(), moment);
    EXPECT_EQ(preferences.lastAutoCleanBytes(), 123'456'789'012);
}

TEST(Preferences, valuesOfAnotherTypeGiveTheDefault) {
    const test::TemporaryTree tree;
    const std::string file = tree.fileWithText(
        fileName, R"({"lowSpaceGB": "5", "menuBar": 0, "excludedPaths": true, "lastAutoClean": 5,
                      "permanentDelete": 1, "lastAutoCleanBytes": 1.5, "cleanSchedule": "hourly",
                      "explorerMode": null, "unknown": []})");
    FilePreferencesStore store(file);
    const Preferences preferences(store);
    EXPECT_EQ(preferences.lowSpaceGB(), 10);
    EXPECT_TRUE(preferences.menuBar());
    EXPECT_EQ(preferences.excludedPaths(), "");
    EXPECT_EQ(preferences.lastAutoClean(), std::nullopt);
    EXPECT_FALSE(preferences.permanentDelete());
    EXPECT_EQ(preferences.lastAutoCleanBytes(), 0);
    EXPECT_EQ(preferences.cleanSchedule(), CleanSchedule::off);
    EXPECT_EQ(preferences.explorerMode(), "list");
}

TEST(Preferences, damagedFileCountsAsEmptyAndIsKeptAside) {
    for (const char* text : {"", "{\"menuBar\": fal", "[]", "\xff\xfe", "{} {}"}) {
        const test::TemporaryTree tree;
        const std::string file = tree.fileWithText(fileName, text);
        tree.fileWithText(std::string(fileName) + ".damaged", "an earlier one");
        FilePreferencesStore store(file);
        Preferences preferences(store);
        EXPECT_TRUE(preferences.menuBar());
        EXPECT_EQ(contents(file), text);

        preferences.setMenuBar(false);
        EXPECT_EQ(contents(file + ".damaged"), "an earlier one");
        EXPECT_EQ(contents(file + ".damaged-2"), text);
        EXPECT_FALSE(Preferences(store).menuBar());
        FilePreferencesStore again(file);
        EXPECT_FALSE(Preferences(again).menuBar());
    }
}

TEST(Preferences, fileThatCannotBeReadIsAFolder) {
    const test::TemporaryTree tree;
    tree.file(std::string(fileName) + "/inside", 3);
    FilePreferencesStore store(tree.path(fileName));
    Preferences preferences(store);
    EXPECT_EQ(preferences.lowSpaceGB(), 10);
    preferences.setLowSpaceGB(20);
    EXPECT_TRUE(tree.exists(std::string(fileName) + ".damaged/inside"));
    FilePreferencesStore again(tree.path(fileName));
    EXPECT_EQ(Preferences(again).lowSpaceGB(), 20);
}

TEST(Preferences, fileThatMayNotBeReadIsLeftAsItIs) {
    const test::TemporaryTree tree;
    const std::string file = tree.fileWithText(fileName, "{\"lowSpaceGB\": 30}");
    ASSERT_EQ(chmod(file.c_str(), 0), 0);
    {
        const test::OrdinaryRights rights;
        FilePreferencesStore store(file);
        Preferences preferences(store);
        preferences.setLowSpaceGB(20);
        EXPECT_EQ(preferences.lowSpaceGB(), 20);
    }
    ASSERT_EQ(chmod(file.c_str(), 0600), 0);
    EXPECT_EQ(contents(file), "{\"lowSpaceGB\": 30}");
    EXPECT_FALSE(tree.exists(std::string(fileName) + ".damaged"));
}

TEST(Preferences, missingHomeFolderIsNotMade) {
    const test::TemporaryTree tree;
    FilePreferencesStore store(tree.path("home") + "/" + std::string(macosTables().preferencesFile));
    store.setValue("menuBar", false);
    EXPECT_EQ(store.value("menuBar"), PreferenceValue(false));
    EXPECT_FALSE(tree.exists("home"));

    tree.directory("home");
    store.setValue("menuBar", true);
    EXPECT_TRUE(tree.exists("home/Library/Preferences/com.brimlet.mac.json"));
}

TEST(Preferences, writesThatFailHoldForTheSession) {
    FilePreferencesStore store("/proc/brimlet/preferences.json");
    Preferences preferences(store);
    preferences.setPermanentDelete(true);
    EXPECT_TRUE(preferences.permanentDelete());
}

TEST(Preferences, writingLeavesNoOtherFileBehind) {
    const test::TemporaryTree tree;
    FilePreferencesStore store(tree.path(fileName));
    store.setValue("menuBar", true);
    store.removeValue("menuBar");
    EXPECT_EQ(store.value("menuBar"), std::nullopt);
    struct stat info {};
    ASSERT_EQ(stat(tree.path("Preferences").c_str(), &info), 0);
    EXPECT_EQ(contents(tree.path(fileName)), "{}\n");
    EXPECT_FALSE(tree.exists(std::string(fileName) + ".damaged"));
}

TEST(Exclusions, readAndWriteTheirList) {
    EXPECT_THAT(excludedPaths(""), IsEmpty());
    EXPECT_THAT(excludedPaths("\n\n/a\n\n/b c\n"), ElementsAre("/a", "/b c"));
    EXPECT_EQ(withExcludedPath("", "/System/Volumes/Data/Users/a/Big"), "/Users/a/Big");
    EXPECT_EQ(withExcludedPath("/a", "/System/Volumes/Data"), "/a\n/");
    EXPECT_EQ(withExcludedPath("/a\n\n", "/a"), "/a\n/a");
    EXPECT_EQ(withExcludedPath("/a", "/odd\nname"), "/a");
    EXPECT_EQ(withoutExcludedPath("/a\n/b\n/a", 2), "/a\n/b");
    EXPECT_EQ(withoutExcludedPath("/a", 0), "");
    EXPECT_EQ(withoutExcludedPath("/a\n\n/b", 9), "/a\n/b");
    EXPECT_THAT(excludedSet("/a\n/a\nrelative"), testing::UnorderedElementsAre("/a", "relative"));
}

} // namespace
} // namespace brimlet
