#include "junk/JunkCatalogue.h"

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
    for (const JunkRule& rule : junkCatalogue()) {
        if (property(rule))
            ids.push_back(rule.id);
    }
    return ids;
}

TEST(JunkCatalogueTest, rulesStandInTheirOrderUnderTheirHeadings) {
    ASSERT_EQ(junkCatalogue().size(), 17U);
    EXPECT_EQ(junkCatalogue().front().id, "user-caches");
    EXPECT_EQ(junkCatalogue().back().id, "old-installers");
    EXPECT_TRUE(std::ranges::is_sorted(junkCatalogue(), {}, &JunkRule::group));
    std::set<std::string_view> ids;
    std::set<std::string_view> bases;
    for (const JunkRule& rule : junkCatalogue()) {
        EXPECT_TRUE(ids.insert(rule.id).second) << rule.id;
        EXPECT_TRUE(bases.insert(rule.base).second) << rule.base;
        EXPECT_FALSE(rule.base.ends_with('/')) << rule.base;
        EXPECT_FALSE(rule.title.empty()) << rule.id;
        EXPECT_TRUE(rule.explanation.ends_with('.')) << rule.id;
        EXPECT_EQ(rule.explanation.find('\''), std::string_view::npos)
            << "a typewriter apostrophe: " << rule.id;
        EXPECT_EQ(junkRule(rule.id), &rule);
    }
    EXPECT_EQ(junkRule("user-cache"), nullptr);
}

TEST(JunkCatalogueTest, whatIsNotSafeOrGoesToTheTrashIsNeverOfferedTicked) {
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.removal == Removal::trash; }),
                ElementsAre("xcode-archives", "ios-backups", "old-installers"));
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.risk != Risk::safe; }),
                ElementsAre("system-logs", "xcode-archives", "dot-cache", "ios-backups", "old-installers"));
    EXPECT_THAT(idsWhere([](const JunkRule& rule) { return rule.risk == Risk::safe && !rule.inSmartClean; }),
                ElementsAre("npm-cache", "gradle-cache"));
    for (const JunkRule& rule : junkCatalogue()) {
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
    EXPECT_EQ(junkRule("user-caches")->excludedNames.size(), 9U);
    EXPECT_EQ(junkRule("old-installers")->extensions->size(), 5U);
    EXPECT_EQ(junkRule("old-installers")->minAgeDays, 7);
    EXPECT_TRUE(junkRule("user-caches")->excludes("com.brimlet.mac")) << "the application's own cache";
}

TEST(JunkCatalogueTest, onlySystemLogsDontDependOnTheHomeFolder) {
    for (const JunkRule& rule : junkCatalogue()) {
        const bool absolute = rule.id == "system-logs";
        EXPECT_EQ(rule.resolvedBase("/Users/me") == rule.resolvedBase("/Users/you"), absolute) << rule.id;
    }
    EXPECT_EQ(junkRule("trash")->resolvedBase("/Users/me"), "/Users/me/.Trash");
    EXPECT_EQ(junkRule("trash")->resolvedBase("/"), "/.Trash");
}

TEST(JunkGroupTest, everyHeadingHasItsOwnLook) {
    std::set<std::string_view> names;
    std::set<std::string_view> symbols;
    for (const JunkGroup group : allJunkGroups) {
        EXPECT_TRUE(names.insert(look(group).caseName).second);
        EXPECT_TRUE(symbols.insert(look(group).symbol).second);
        EXPECT_FALSE(look(group).title.empty());
    }
    EXPECT_EQ(look(JunkGroup::downloads).caseName, "downloads");
    EXPECT_EQ(look(JunkGroup::devices).title, "iPhone & iPad");
}

} // namespace
} // namespace brimlet
