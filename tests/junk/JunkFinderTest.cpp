#include "junk/JunkFinder.h"
#include "core/walk/MeasureTree.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "platform/ScratchName.h"
#include "support/CatalogueRule.h"
#include "support/FakeAccessProbe.h"
#include "support/HookedDirectoryLister.h"
#include "support/MadeUpRule.h"
#include "support/Privileges.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

using test::madeUpRule;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr double now = 1'700'000'000;
constexpr std::size_t block = 4096;

class JunkFinderTest : public testing::Test {
protected:
    test::TemporaryTree home;
    LinuxDirectoryLister lister;
    test::FakeAccessProbe access;
    JunkFinder finder{home.root(), macosTables().junk, lister, access, [] { return now; }};

    std::vector<std::string> names(const std::optional<JunkFinding>& finding) const {
        std::vector<std::string> result;
        if (finding) {
            for (const JunkItem& item : finding->items)
                result.push_back(item.path.substr(item.path.rfind('/') + 1));
        }
        return result;
    }

    std::vector<std::string> found(std::string_view ruleId) const {
        return names(finder.scanRule(test::macRule(ruleId)));
    }
};

TEST_F(JunkFinderTest, directChildrenAreItemsWithAllThatIsInThem) {
    home.file("Library/Caches/com.foo/deep/a", 3 * block);
    home.file("Library/Caches/com.foo/b", block);
    home.file("Library/Caches/single", 8 * block);
    home.file("Library/Caches/.hidden \xFF", block);
    home.setTimes("Library/Caches/single", 1, 42.5);
    const auto finding = finder.scanRule(test::macRule("user-caches"));
    ASSERT_TRUE(finding);
    EXPECT_EQ(finding->rule.id, "user-caches");
    EXPECT_THAT(names(finding), ElementsAre("single", "com.foo", ".hidden \xFF")) << "largest first";
    std::int64_t total = 0;
    for (const JunkItem& item : finding->items) {
        EXPECT_EQ((TreeMeasure{item.size, item.fileCount}), measureTree(item.path)) << item.path;
        EXPECT_EQ(item.ruleId, "user-caches");
        total += item.size;
    }
    EXPECT_EQ(finding->total(), total);
    EXPECT_EQ(finding->items[0].path, home.path("Library/Caches/single"));
    EXPECT_EQ(finding->items[0].modified, 42.5);
    EXPECT_EQ(finding->items[1].fileCount, 2);
}

TEST_F(JunkFinderTest, excludedNamesNeverCount) {
    for (const std::string_view name : test::macRule("user-caches").excludedNames)
        home.file("Library/Caches/" + std::string(name) + "/a", block);
    EXPECT_THAT(found("user-caches"), IsEmpty());
    home.file("Library/Caches/cloudkit/a", block);
    EXPECT_THAT(found("user-caches"), ElementsAre("cloudkit"));
}

TEST_F(JunkFinderTest, whatARemovalHasSetAsideIsNoItem) {
    for (const std::string& name : {scratchName(), scratchName() + "0", std::string(".brimlet-notes")})
        home.file("Library/Logs/" + name + "/file", block);
    EXPECT_THAT(found("user-logs"), testing::SizeIs(2));
}

TEST_F(JunkFinderTest, folderSettingsCountInTheTrashOnly) {
    home.file(".Trash/.DS_Store", block);
    home.file("Library/Logs/.DS_Store", block);
    home.file("Library/Logs/.DS_Store2", block);
    EXPECT_THAT(found("trash"), ElementsAre(".DS_Store"));
    EXPECT_THAT(found("user-logs"), ElementsAre(".DS_Store2"));
}

TEST_F(JunkFinderTest, installersCountByExtensionInAnyCaseAndNotBelow) {
    for (const char* name : {"a.dmg", "b.PKG", "c.mPkG/Contents/x", "d.xip", "e.iso", "f.dmg.zip", "g.dm",
                             "dmg", ".dmg", "i.dmg.", "folder/j.dmg"})
        home.file("Downloads/" + std::string(name), block);
    for (const auto& entry : std::filesystem::directory_iterator(home.path("Downloads")))
        home.setTimes("Downloads/" + entry.path().filename().native(), 1, 1);
    EXPECT_THAT(found("old-installers"), UnorderedElementsAre("a.dmg", "b.PKG", "c.mPkG", "d.xip", "e.iso"));
}

TEST_F(JunkFinderTest, ageLimitHoldsToTheSecond) {
    constexpr double sevenDays = 7 * 86'400;
    const std::pair<const char*, double> files[] = {
        {"six days.dmg", now - 6 * 86'400},
        {"a second short.dmg", now - sevenDays + 1},
        {"half a second.dmg", now - sevenDays + 0.5},
        {"exactly.dmg", now - sevenDays},
        {"a second more.dmg", now - sevenDays - 1},
        {"ahead.dmg", now + 100},
        {"undated.dmg", now},
    };
    for (const auto& [name, modified] : files) {
        home.file("Downloads/" + std::string(name), block);
        home.setTimes("Downloads/" + std::string(name), 1, modified);
    }
    const test::HookedDirectoryLister undated(lister,
                                              [](const std::string&, std::vector<ListedChild>& entries) {
                                                  for (ListedChild& entry : entries) {
                                                      if (entry.name == "undated.dmg")
                                                          entry.modified.reset();
                                                  }
                                              });
    const JunkFinder withUndated(home.root(), macosTables().junk, undated, access, [] { return now; });
    const auto finding = withUndated.scanRule(test::macRule("old-installers"));
    EXPECT_THAT(names(finding), UnorderedElementsAre("exactly.dmg", "a second more.dmg", "undated.dmg"));
    for (const JunkItem& item : finding->items)
        EXPECT_EQ(item.modified.has_value(), !item.path.ends_with("undated.dmg"));
}

TEST_F(JunkFinderTest, folderThatIsNoneOfItsOwnFindsNothing) {
    EXPECT_THAT(found("user-caches"), IsEmpty()) << "missing";
    home.file("Library/Caches", block);
    EXPECT_THAT(found("user-caches"), IsEmpty()) << "a file";
    home.directory("Library/Logs");
    EXPECT_THAT(found("user-logs"), IsEmpty()) << "empty";
    home.file("elsewhere/precious", block);
    home.symbolicLink(".cache", "elsewhere");
    EXPECT_THAT(found("dot-cache"), IsEmpty()) << "a link";
    EXPECT_THAT(finder.scan(macosTables().junk.rules).size(),
                finder.scan({{test::macRule("system-logs")}}).size());
}

TEST_F(JunkFinderTest, unreadableFolderFindsNothing) {
    home.file(".cache/a", block);
    const test::OrdinaryRights rights;
    EXPECT_THAT(found("dot-cache"), ElementsAre("a"));
    std::filesystem::permissions(home.path(".cache"), std::filesystem::perms(0));
    EXPECT_THAT(found("dot-cache"), IsEmpty());
}

TEST_F(JunkFinderTest, whatOccupiesNothingIsNoItem) {
    home.file(".cache/empty");
    home.sparseFile(".cache/sparse", 1 << 20);
    home.file(".cache/full", block);
    EXPECT_THAT(found("dot-cache"), ElementsAre("full"));
}

TEST_F(JunkFinderTest, whatVanishesAfterTheListingIsNoItem) {
    home.file(".cache/stays/a", block);
    home.file(".cache/goes/a", block);
    const test::HookedDirectoryLister vanishing(lister, [&](const std::string&, std::vector<ListedChild>&) {
        std::filesystem::remove_all(home.path(".cache/goes"));
    });
    const JunkFinder late(home.root(), macosTables().junk, vanishing, access);
    EXPECT_THAT(names(late.scanRule(test::macRule("dot-cache"))), ElementsAre("stays"));

    const test::HookedDirectoryLister allGone(lister, [&](const std::string&, std::vector<ListedChild>&) {
        std::filesystem::remove_all(home.path(".cache"));
    });
    EXPECT_FALSE(JunkFinder(home.root(), macosTables().junk, allGone, access)
                     .scanRule(test::macRule("dot-cache"))
                     .has_value());
}

TEST_F(JunkFinderTest, hardLinkCountsOnceInAnItemAndAgainInTheNext) {
    home.file(".cache/first/a", 16 * block);
    home.hardLink(".cache/first/b", ".cache/first/a");
    home.directory(".cache/second");
    home.hardLink(".cache/second/c", ".cache/first/a");
    const auto finding = finder.scanRule(test::macRule("dot-cache"));
    ASSERT_TRUE(finding && finding->items.size() == 2);
    for (const JunkItem& item : finding->items) {
        EXPECT_EQ(item.fileCount, 1) << item.path;
        EXPECT_GE(item.size, static_cast<std::int64_t>(16 * block));
        EXPECT_LT(item.size, static_cast<std::int64_t>(32 * block));
    }
}

TEST_F(JunkFinderTest, containersAreTriedOnlyWithFullDiskAccess) {
    home.file("Library/Containers/com.apple.mail/Data/Library/Mail Downloads/a.pdf", block);
    const JunkRule rules[] = {test::macRule("mail-downloads"), test::macRule("user-caches")};
    EXPECT_EQ(finder.scan(rules).size(), 1U);
    access.granted = false;
    EXPECT_EQ(finder.scan(rules).size(), 0U);
    EXPECT_EQ(access.asked, 2) << "once for each search";
    EXPECT_THAT(found("mail-downloads"), ElementsAre("a.pdf"));
    EXPECT_EQ(access.asked, 2);
}

TEST_F(JunkFinderTest, findingsStandLargestTotalFirst) {
    home.file("small/a", 5 * block);
    home.file("large/a", 4 * block);
    home.file("large/b", 4 * block);
    home.file("middle/a", 6 * block);
    home.directory("nothing");
    const std::string absolute = home.path("middle");
    const JunkRule rules[] = {madeUpRule("small", "small"), madeUpRule("nothing", "nothing"),
                              madeUpRule("large", "large"), madeUpRule("middle", absolute)};
    std::vector<std::string_view> order;
    for (const JunkFinding& finding : finder.scan(rules))
        order.push_back(finding.rule.id);
    EXPECT_THAT(order, ElementsAre("large", "middle", "small"));
    EXPECT_THAT(finder.scan({}), IsEmpty());
}

TEST_F(JunkFinderTest, manyItemsAreEachMeasuredForThemselves) {
    constexpr int count = 600;
    for (int i = 0; i < count; ++i)
        home.file(".cache/item" + std::to_string(i) + "/f", static_cast<std::size_t>(i % 7 + 1) * block);
    const auto finding = finder.scanRule(test::macRule("dot-cache"));
    ASSERT_TRUE(finding);
    EXPECT_EQ(finding->items.size(), static_cast<std::size_t>(count));
    EXPECT_TRUE(std::ranges::is_sorted(finding->items, std::greater(), &JunkItem::size));
    for (const JunkItem& item : finding->items)
        ASSERT_EQ((TreeMeasure{item.size, item.fileCount}), measureTree(item.path)) << item.path;
}

} // namespace
} // namespace brimlet
