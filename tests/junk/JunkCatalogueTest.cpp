#include "support/CatalogueRule.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace brimlet {
namespace {

using testing::ElementsAre;

template <typename Property>
std::vector<std::string_view> idsWhere(const Property& property) {
    std::vector<std::string_view> ids;
    for (const JunkRule& rule : macosTables().junk.rules) {
        if (property(rule))
            ids.push_back(rule.id);
    }
    return ids;
}

TEST(JunkCatalogueTest, rulesStandInTheirOrderUnderTheirHeadings) {
    ASSERT_EQ(macosTables().junk.rules.size(), 17U);
    EXPECT_EQ(macosTables().junk.rules.front().id, "user-caches");
    EXPECT_EQ(macosTables().junk.rules.back().id, "old-installers");
    EXPECT_TRUE(std::ranges::is_sorted(macosTables().junk.rules, {}, &JunkRule::group));
    std::set<std::string_view> ids;
    std::set<std::string_view> bases;
    for (const JunkRule& rule : macosTables().junk.rules) {
        EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
        EXPECT_TRUE(bases.insert(rule.base).second) << rule.base;
        EXPECT_FALSE(rule.base.ends_with('/')) << rule.base;
        EXPECT_FALSE(rule.title.empty()) << rule.id;
        EXPECT_TRUE(rule.explanation.ends_with('.')) << rule.id;
        EXPECT_EQ(rule.explanation.find('\''), std::string_view::npos)
            << "a typewriter apostrophe: " << rule.id;
        EXPECT_EQ(junkRule(macosTables().junk.rules, rule.id), &rule);
    }
    EXPECT_EQ(junkRule(macosTables().junk.rules, "user-cache"), nullptr);
}

TEST(JunkCatalogueTest, whatIsNotSafeOrGoesToTheTrashIsNeverOfferedTicked) {
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.removal == Removal::trash; }),
                ElementsAre("xcode-archives", "ios-backups", "old-installers"));
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.risk != Risk::safe; }),
                ElementsAre("system-logs", "xcode-archives", "dot-cache", "ios-backups", "old-installers"));
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.risk == Risk::safe && !rule.inSmartClean; }),
                ElementsAre("npm-cache", "gradle-cache"));
    for (const JunkRule& rule : macosTables().junk.rules) {
        EXPECT_NE(rule.risk, Risk::protected_) << rule.id;
        EXPECT_FALSE(rule.inSmartClean && (rule.risk != Risk::safe || rule.removal == Removal::trash))
            << rule.id;
    }
}

TEST(JunkCatalogueTest, onlyTwoRulesHaveLimits) {
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.extensions || rule.minAgeDays; }),
                ElementsAre("old-installers"));
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return !rule.excludedNames.empty(); }),
                ElementsAre("user-caches"));
    EXPECT_EQ(test::macRule("user-caches").excludedNames.size(), 9U);
    EXPECT_EQ(test::macRule("old-installers").extensions->size(), 5U);
    EXPECT_EQ(test::macRule("old-installers").minAgeDays, 7);
    EXPECT_TRUE(test::macRule("user-caches").excludes("com.brimlet.mac")) << "the application's own cache";
}

TEST(JunkCatalogueTest, onlySystemLogsDontDependOnTheHomeFolder) {
    for (const JunkRule& rule : macosTables().junk.rules) {
        const bool absolute = rule.id == "system-logs";
        EXPECT_EQ(rule.resolvedBase("/Users/me") == rule.resolvedBase("/Users/you"), absolute) << rule.id;
    }
    EXPECT_EQ(test::macRule("trash").resolvedBase("/Users/me"), "/Users/me/.Trash");
    EXPECT_EQ(test::macRule("trash").resolvedBase("/"), "/.Trash");
}

TEST(JunkGroupTest, everyHeadingHasItsOwnLook) {
    std::set<std::string_view> names;
    std::set<std::string_view> symbols;
    for (const JunkGroup group : macosTables().junk.groups) {
        EXPECT_TRUE(names.insert(look(group).caseName).second);
        EXPECT_TRUE(symbols.insert(look(group).symbol).second);
        EXPECT_FALSE(look(group).title.empty());
    }
    EXPECT_EQ(look(JunkGroup::downloads).caseName, "downloads");
    EXPECT_EQ(look(JunkGroup::devices).title, "iPhone & iPad");
}

} // namespace
} // namespace brimlet
