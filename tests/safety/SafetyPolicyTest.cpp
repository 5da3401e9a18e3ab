#include "safety/SafetyPolicy.h"
#include "core/Localized.h"
#include "safety/PathJudge.h"
#include "support/FakeBundles.h"
#include "support/MadeUpRule.h"
#include "tables/SystemTables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace brimlet {
namespace {

const SafetyTables& tables = macosTables().safety;

using test::FakeBundles;
using test::FakeRunningApplications;
using test::madeUpRule;
using testing::StartsWith;

constexpr const char* rootSentence = "Root folder of the system";
constexpr const char* emptiedSentence = "Folder used by macOS.";
constexpr const char* standardSentence = "Standard folder in your user account.";
constexpr const char* sharedSentence = "Shared file used by the system or a tool.";
constexpr const char* appDataSentence = "App data.";
constexpr const char* personalSentence = "Personal file.";
constexpr const char* otherSentence = "Review before deleting.";
constexpr const char* librarySentence = "Your photo or music library.";
constexpr const char* cacheSentence = "Temporary copies apps keep";
constexpr const char* installerSentence = ".dmg/.pkg/.xip files";
constexpr const char* downloadSentence = "Download.";
constexpr const char* inTrashSentence = "Everything you’ve already moved to the Trash.";
constexpr const char* applicationSentence = "Application. Use Uninstall";

class SafetyPolicyTest : public testing::Test {
protected:
    FakeBundles bundles;
    FakeRunningApplications running;
    SafetyPolicy policy{"/Users/me", macosTables().safety, macosTables().junk.rules, bundles, running};

    struct Case {
        std::string path;
        Risk risk;
        std::string beginning; ///< of the reason
    };

    void expectVerdicts(const std::vector<Case>& cases) const {
        for (const auto& [path, risk, beginning] : cases) {
            const SafetyVerdict verdict = policy.verdict(path);
            EXPECT_EQ(verdict.risk, risk) << path << ": " << verdict.reason;
            EXPECT_THAT(verdict.reason, StartsWith(beginning)) << path;
        }
    }
};

TEST_F(SafetyPolicyTest, dataVolumePrefixIsDroppedBeforeJudging) {
    expectVerdicts({
        {"/System/Volumes/Data", Risk::protected_, rootSentence},
        {"/System/Volumes/Data/", Risk::protected_, rootSentence},
        {"/System/Volumes/Data/Users/me/Downloads/a.zip", Risk::safe, downloadSentence},
        {"/System/Volumes/Data/System/x", Risk::protected_, "Part of macOS"},
        {"/System/Volumes/Data/System/Volumes/Data/x", Risk::protected_, "Part of macOS"},
        {"/System/Volumes/DataX", Risk::protected_, "Part of macOS"},
        {"/System/Volumes/DataX/Users/me/Downloads/a.zip", Risk::protected_, "Part of macOS"},
    });
}

TEST_F(SafetyPolicyTest, rootFoldersAreProtected) {
    expectVerdicts({
        {"", Risk::protected_, rootSentence},
        {"/", Risk::protected_, rootSentence},
        {"//", Risk::protected_, rootSentence},
        {"/Users/me", Risk::protected_, rootSentence},
        {"/Users/me/", Risk::review, personalSentence},
        {"/Users/meg", Risk::review, otherSentence},
        {"/Users", Risk::protected_, rootSentence},
        {"/Library", Risk::protected_, rootSentence},
        {"/tmp", Risk::protected_, rootSentence},
        {"//tmp//", Risk::protected_, rootSentence},
        {"/Volumes/", Risk::protected_, rootSentence},
        {"/System", Risk::protected_, rootSentence},
        {"/Volumes/Backup", Risk::review, otherSentence},
        {"/Volumes/Backup/file", Risk::review, otherSentence},
    });
}

TEST_F(SafetyPolicyTest, systemRowNeedsItsExactPathOrWhatLiesBelow) {
    for (const PlaceRow& row : tables.systemPlaces) {
        const std::string path(row.path);
        EXPECT_EQ(policy.verdict(path + "/x"), (SafetyVerdict{Risk::protected_, std::string(row.reason)}));
        EXPECT_NE(policy.verdict(path + "x/y").reason, row.reason) << path;
        EXPECT_NE(policy.verdict(path.substr(0, path.size() - 1) + "/y").reason, row.reason) << path;
    }
    expectVerdicts({
        {"/usr/lib", Risk::protected_, "macOS libraries."},
        {"/usr/libexec", Risk::protected_, "macOS components."},
        {"/usr/libexecfoo", Risk::review, sharedSentence},
        {"/usr/LIB/x", Risk::review, sharedSentence},
        {"/usr//lib/x", Risk::review, sharedSentence},
        {"/usr/local/bin/tool", Risk::review, sharedSentence},
        {"/Library/Application Support/com.apple.TCC.old/x", Risk::review, sharedSentence},
    });
}

TEST_F(SafetyPolicyTest, foldersOfRulesAreEmptiedButKept) {
    for (const JunkRule& rule : macosTables().junk.rules) {
        const std::string base = rule.resolvedBase("/Users/me");
        expectVerdicts({{base, Risk::protected_, emptiedSentence},
                        {"/System/Volumes/Data" + base, Risk::protected_, emptiedSentence}});
        EXPECT_THAT(policy.verdict(base + "x").reason, Not(StartsWith(emptiedSentence))) << base;
    }
}

TEST_F(SafetyPolicyTest, trashIsKeptEvenWithoutARuleForIt) {
    const SafetyPolicy bare("/Users/me", tables, {}, bundles, running);
    EXPECT_THAT(bare.verdict("/Users/me/.Trash").reason, StartsWith(emptiedSentence));
    EXPECT_THAT(bare.verdict("/Users/me/.Trash/x").reason, StartsWith("Already in the Trash."));
    EXPECT_EQ(bare.verdict("/Users/me/.Trash/x").risk, Risk::safe);
    EXPECT_THAT(bare.verdict("/Users/me/.Trash/F.app/x").reason, StartsWith("Inside a .app package."));
    EXPECT_THAT(bare.verdict("/Users/me/.Trashy").reason, StartsWith(personalSentence));
}

TEST_F(SafetyPolicyTest, whatLiesUnderARuleTakesItsRiskAndExplanation) {
    expectVerdicts({
        {"/Users/me/Library/Caches/com.foo", Risk::safe, cacheSentence},
        {"/Users/me/Library/Caches/com.foo/deep/Some.app/x", Risk::safe, cacheSentence},
        {"/Users/me/Library/Caches//com.foo", Risk::safe, cacheSentence},
        {"/Users/me/Library/Caches2/com.foo", Risk::review, appDataSentence},
        {"/Users/you/Library/Caches/com.foo", Risk::review, otherSentence},
        {"/Library/Logs/x.log", Risk::review, "Logs shared by all users."},
        {"/Users/me/.Trash/F.app/Contents/x", Risk::safe, inTrashSentence},
        {"/Users/me/Library/Containers/com.apple.mail/Data/Library/Mail Downloads/a", Risk::safe,
         "Copies of attachments"},
    });
}

TEST_F(SafetyPolicyTest, excludedNamesFallOutOfAllRules) {
    const JunkRule& caches = macosTables().junk.rules.front();
    ASSERT_EQ(caches.excludedNames.size(), 9U);
    for (const std::string_view name : caches.excludedNames) {
        const std::string path = "/Users/me/Library/Caches/" + std::string(name);
        expectVerdicts({{path, Risk::review, appDataSentence},
                        {path + "/below", Risk::review, appDataSentence},
                        {path + "x", Risk::safe, cacheSentence}});
    }

    // A later rule with the same folder isn't asked either; it is for other names.
    std::vector<JunkRule> two = {madeUpRule("first", "Box"), madeUpRule("second", "Box"),
                                 madeUpRule("inner", "Box/in")};
    two[0].extensions = std::vector<std::string_view>{"a"};
    two[0].excludedNames = {"out"};
    const SafetyPolicy nested("/Users/me", tables, two, bundles, running);
    EXPECT_EQ(nested.rule("/Users/me/Box/out/x"), nullptr);
    EXPECT_EQ(nested.rule("/Users/me/Box/x.A"), &two[0]);
    EXPECT_EQ(nested.rule("/Users/me/Box/in/x.a"), &two[1]);
    EXPECT_EQ(nested.rule("/Users/me/Box"), nullptr);
}

TEST_F(SafetyPolicyTest, extensionOfTheTopItemDecidesInDownloads) {
    expectVerdicts({
        {"/Users/me/Downloads/a.dmg", Risk::review, installerSentence},
        {"/Users/me/Downloads/a.DmG", Risk::review, installerSentence},
        {"/Users/me/Downloads/a.iso/inside.txt", Risk::review, installerSentence},
        {"/Users/me/Downloads/dir/a.dmg", Risk::safe, downloadSentence},
        {"/Users/me/Downloads/.dmg", Risk::safe, downloadSentence},
        {"/Users/me/Downloads/dmg", Risk::safe, downloadSentence},
        {"/Users/me/Downloads/a.dmg.", Risk::safe, downloadSentence},
        {"/Users/me/Downloads/a.dm", Risk::safe, downloadSentence},
        {"/Users/me/Downloads/", Risk::safe, downloadSentence},
    });
}

TEST_F(SafetyPolicyTest, standardFoldersOfTheHomeFolderAreProtected) {
    for (const std::string_view folder : tables.standardFolders) {
        if (folder != "Downloads") {
            expectVerdicts({{"/Users/me/" + std::string(folder), Risk::protected_, standardSentence}});
        }
    }
    expectVerdicts({
        {"/Users/me/Desktop/x", Risk::review, personalSentence},
        {"/Users/me/desktop", Risk::review, personalSentence},
        {"/Users/you/Desktop", Risk::review, otherSentence},
    });
}

TEST_F(SafetyPolicyTest, userRowCoversItselfWhatIsBelowAndItsDotNames) {
    for (const PlaceRow& row : tables.homePlaces) {
        const std::string path = "/Users/me/" + std::string(row.path);
        for (const char* tail : {"", "/x", ".x", ".x/y"})
            EXPECT_EQ(policy.verdict(path + tail), (SafetyVerdict{row.risk, std::string(row.reason)}))
                << path << tail;
        EXPECT_NE(policy.verdict(path + "x").reason, row.reason);
        EXPECT_NE(policy.verdict("/Volumes" + path).reason, row.reason);
    }
    expectVerdicts({
        {"/Users/me/Library/Containers/com.apple.mail/Data", Risk::protected_, "Apple app data."},
        {"/Users/me/Library/Containers/com.applesauce", Risk::review, appDataSentence},
        {"/Users/me/Library/Preferences.old", Risk::review, "App settings."},
        {"/Users/me/Library/plain", Risk::review, appDataSentence},
    });
}

TEST_F(SafetyPolicyTest, markersAreTriedInOrderAnywhereInThePath) {
    for (const std::string_view marker : tables.packageMarkers) {
        const std::string name(marker.substr(0, marker.size() - 1));
        expectVerdicts(
            {{"/Volumes/D/P" + name + "/x", Risk::protected_, "Inside a " + name + " package. Deleting"},
             {"/Volumes/D/P" + name + ".bak/x", Risk::review, otherSentence}});
    }
    expectVerdicts({
        {"/Applications/Foo.app/Contents/Resources/x", Risk::protected_, "Inside a .app package."},
        {"/Applications/F.app/P.photoslibrary/x", Risk::protected_, "Inside a .photoslibrary package."},
        {"/Applications/Foo.app/", Risk::protected_, "Inside a .app package."},
        {"/Applications/Foo.app/Inner.app", Risk::protected_, "Inside a .app package."},
        {"/Applications/Foo.APP/x", Risk::review, otherSentence},
    });
}

TEST_F(SafetyPolicyTest, applicationIsJudgedByItsBundle) {
    const std::string path = "/Applications/Foo.app";
    expectVerdicts({{path, Risk::review, applicationSentence}});
    bundles.byPath[path] = "com.apple.Foo";
    running.open = {"com.apple.Foo"};
    expectVerdicts({{path, Risk::protected_, "Apple app included with macOS"}});
    bundles.byPath[path] = "com.applesauce.Foo";
    expectVerdicts({{path, Risk::review, applicationSentence}});
    running.open = {"other", "com.applesauce.Foo"};
    expectVerdicts({{path, Risk::protected_, "The app is open."}});
    running.open = {"com.applesauce.foo", "com.applesauce.Foo2"};
    expectVerdicts({{path, Risk::review, applicationSentence}});
}

TEST_F(SafetyPolicyTest, ownBundleIsToldByIdentifierWhereverItLies) {
    const std::string copy = "/Volumes/Backup/Old/Anything.app";
    bundles.byPath[copy] = "com.brimlet.mac";
    expectVerdicts({{copy, Risk::protected_, "This is Brimlet."}});
    running.open = {"com.brimlet.mac"};
    expectVerdicts({{copy, Risk::protected_, "The app is open."}});
    running.open = {};
    bundles.own = std::nullopt;
    expectVerdicts({{copy, Risk::review, applicationSentence}});
}

TEST_F(SafetyPolicyTest, bundleIsOpenedAtThePathAsGiven) {
    bundles.byPath["/System/Volumes/Data/Applications/Foo.app"] = "com.apple.Foo";
    expectVerdicts({{"/System/Volumes/Data/Applications/Foo.app", Risk::protected_, "Apple app"},
                    {"/Applications/Foo.app", Risk::review, applicationSentence},
                    {"/Users/me/Downloads/Foo.app", Risk::review, applicationSentence},
                    {"/Users/me/Library/Foo.app", Risk::review, applicationSentence}});
}

TEST_F(SafetyPolicyTest, remainingPlacesAreToldApart) {
    expectVerdicts({
        {"/Users/me/Pictures/P.photoslibrary", Risk::protected_, librarySentence},
        {"/Volumes/D/M.musiclibrary", Risk::protected_, librarySentence},
        {"/Users/me/Pictures/P.photolibrary", Risk::review, personalSentence},
        {"/Users/me/Movies/T.tvlibrary", Risk::review, personalSentence},
        {"/Users/me/Library/Application Support/Foo", Risk::review, appDataSentence},
        {"/Library/Fonts/x", Risk::review, sharedSentence},
        {"/private/tmp/x", Risk::review, sharedSentence},
        {"/opt/tool/x", Risk::review, sharedSentence},
        {"/option/x", Risk::review, otherSentence},
        {"/Users/me/Downloads/a.zip", Risk::safe, downloadSentence},
        {"/Users/me/notes.txt", Risk::review, personalSentence},
        {"/Users/me/caf\xE9", Risk::review, personalSentence},
        {"/Users/Shared/x", Risk::review, otherSentence},
    });
}

TEST_F(SafetyPolicyTest, reasonsAreTranslated) {
    setTextLookup([](std::string_view english) { return "<" + std::string(english) + ">"; });
    EXPECT_EQ(policy.verdict("/x/y").reason, "<Review before deleting.>");
    EXPECT_EQ(
        policy.verdict("/x/F.app/y").reason,
        "<Inside a .app package. Deleting individual pieces corrupts it; remove the whole package if you "
        "no longer use it.>");
    EXPECT_EQ(label(Risk::protected_), "<Protected>");
    setTextLookup(nullptr);
}

TEST(SafetyTablesTest, tablesHaveTheirRowsOnce) {
    std::set<std::string_view> paths;
    for (const PlaceRow& row : tables.systemPlaces) {
        EXPECT_TRUE(paths.insert(row.path).second) << row.path;
        EXPECT_TRUE(row.path.starts_with('/') && !row.path.ends_with('/')) << row.path;
        EXPECT_EQ(row.risk, Risk::protected_);
        EXPECT_TRUE(row.reason.ends_with('.')) << row.reason;
    }
    EXPECT_EQ(paths.size(), 23U);
    EXPECT_EQ(tables.systemPlaces.front().path, "/System");
    EXPECT_EQ(tables.systemPlaces.back().path, "/MobileSoftwareUpdate");
    paths.clear();
    for (const PlaceRow& row : tables.homePlaces) {
        EXPECT_TRUE(paths.insert(row.path).second) << row.path;
        EXPECT_TRUE(row.path.starts_with("Library/") && !row.path.ends_with('/')) << row.path;
        EXPECT_EQ(row.risk == Risk::review, &row == &tables.homePlaces[10]) << row.path;
        EXPECT_TRUE(row.reason.ends_with('.')) << row.reason;
    }
    EXPECT_EQ(paths.size(), 13U);
    EXPECT_EQ(tables.packageMarkers.front(), ".photoslibrary/");
    EXPECT_EQ(tables.packageMarkers.back(), ".logicx/");
}

TEST(RiskTest, isOrderedFromSafeToProtected) {
    EXPECT_LT(Risk::safe, Risk::review);
    EXPECT_LT(Risk::review, Risk::protected_);
    for (const Risk risk : allRisks)
        EXPECT_STRCASEEQ(label(risk).c_str(), std::string(caseName(risk)).c_str());
}

TEST(PathJudge, knowsTheHomeFolderByBothItsPaths) {
    const FakeBundles bundles;
    const FakeRunningApplications running;
    const SafetyPolicy policy("/home/u", macosTables().safety, macosTables().junk.rules, bundles, running);
    const PathJudge judge = judgeByBothHomes(policy, "/home/u", "/data/u");
    for (const char* path : {"/home/u", "/data/u", "/data/u/Documents", "/data/u/Library/Keychains"})
        EXPECT_EQ(judge(path).risk, Risk::protected_) << path;
    EXPECT_EQ(judge("/data/u/Downloads/old.txt"), policy.verdict("/home/u/Downloads/old.txt"))
        << "a download stays safe where the home folder is a link";
    const PathJudge inSystem = judgeByBothHomes(policy, "/home/u", "/private/etc/u");
    EXPECT_EQ(inSystem("/private/etc/u/Downloads/old.txt").risk, Risk::protected_);
    EXPECT_EQ(judge("/data/u2/Documents"), policy.verdict("/data/u2/Documents"));
}

} // namespace
} // namespace brimlet
