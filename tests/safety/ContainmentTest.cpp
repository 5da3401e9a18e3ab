// Nothing goes that holds the home folder, the Trash, the history, the program or a protected place.

#include "platform/HomeFolder.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "safety/ItemReview.h"
#include "safety/ProtectedPlaces.h"
#include "safety/SafetyPolicy.h"
#include "support/DeletionStage.h"
#include "support/FakeBundles.h"
#include "support/FakeServices.h"
#include "support/Privileges.h"
#include "support/Timing.h"
#include "tables/SystemTables.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/mount.h>

namespace brimlet::test {
namespace {

/// A user whose home folder is "users/me" of a tree.
struct User {
    TemporaryTree tree;
    std::string home = tree.directory("users/me");
    FakeBundles bundles;
    FakeRunningApplications running;
    SafetyPolicy policy{home, macosTables().safety, macosTables().junk.rules, bundles, running};
    LinuxEntryLookup entries;
    LinuxDirectoryLister lister;
    PlacesSource places = placesOfUser(home, macosTables().safety, policy, entries, lister);

    std::optional<std::string> reasonToKeep(const std::string& relative) const {
        const std::string path = tree.path(relative);
        const auto found = entries.find(path);
        return places().reasonToKeep(path, found ? std::optional(found->identity) : std::nullopt);
    }
};

TEST(ProtectedPlaces, areNamedByWhatHoldsThem) {
    const User user;
    for (const char* folder :
         {"users/me/.Trash", "users/me/Library/Application Support/Brimlet", "users/me/Library/Mail",
          "users/me/Library/Group Containers/group.com.apple.notes",
          "users/me/Library/Containers/com.apple.mail", "users/me/Library/Containers/com.example.app",
          "users/me/.npm/_cacache", "users/other"})
        user.tree.directory(folder);
    const struct {
        const char* item;
        const char* reason; ///< null for what may go
    } cases[] = {
        {"users", "It contains your home folder."},
        {"users/", "It contains your home folder."},
        {"users/me", "It contains your home folder."},
        {"users/me/.Trash", "It contains your Trash."},
        {"users/me/Library/Application Support", "It contains the history of Brimlet."},
        {"users/me/Library/Application Support/Brimlet", "It contains the history of Brimlet."},
        {"users/me/Library/Group Containers",
         "It contains a protected place: ~/Library/Group Containers/group.com.apple.notes"},
        {"users/me/Library/Containers", "It contains a protected place: ~/Library/Containers/com.apple.mail"},
        {"users/me/.npm", "It contains a protected place: ~/.npm/_cacache"},
        {"users/me/.npm/_cacache/item", nullptr},
        {"users/me/.gradle", nullptr}, // has no cache on this disk
        {"users/me/Library/Containers/com.example.app", nullptr},
        {"users/other", nullptr},
        {"use", nullptr},
    };
    for (const auto& one : cases) {
        const auto reason = user.reasonToKeep(one.item);
        EXPECT_EQ(reason.value_or("may go"), one.reason != nullptr ? one.reason : "may go") << one.item;
    }
    const std::filesystem::path program = programPath();
    EXPECT_EQ(user.places().reasonToKeep(program.parent_path().native(), {}), "It contains Brimlet itself.");
}

TEST(ProtectedPlaces, areFoundBehindLinks) {
    const TemporaryTree tree;
    tree.directory("disk/users/me/Library/Mail");
    tree.directory("mail/store");
    tree.symbolicLink("home", "disk/users");
    std::filesystem::remove(tree.path("disk/users/me/Library/Mail"));
    tree.symbolicLink("disk/users/me/Library/Mail", tree.path("mail/store"));
    const LinuxEntryLookup entries;
    const ProtectedPlaces places(
        {{tree.path("home/me"), "home"}, {tree.path("home/me/Library/Mail"), "mail"}}, entries);
    for (const char* holder : {"home", "disk", "disk/users", "disk/users/me"})
        EXPECT_EQ(places.reasonToKeep(tree.path(holder), {}), "home") << holder;
    for (const char* holder : {"mail", "mail/store", "home/me/Library"})
        EXPECT_EQ(places.reasonToKeep(tree.path(holder), {}), "mail") << holder;
    EXPECT_EQ(places.reasonToKeep(tree.path("mail/other"), {}), std::nullopt);
}

TEST(ProtectedPlaces, includeFoldersOfTheHomeFolderThatLieOnAnotherDisk) {
    const User user;
    user.tree.directory("disk/papers/old");
    user.tree.symbolicLink("users/me/Documents", user.tree.path("disk/papers"));
    for (const char* holder : {"disk", "disk/papers"})
        EXPECT_EQ(user.reasonToKeep(holder), "It contains a protected place: ~/Documents") << holder;
    EXPECT_EQ(user.reasonToKeep("disk/papers/old"), std::nullopt);
}

TEST(ProtectedPlaces, areFoundThroughAnotherMount) {
    const bool isAllowed = withOwnMounts([] {
        const User user;
        const std::string view = user.tree.directory("view");
        ASSERT_EQ(mount(user.tree.path("users").c_str(), view.c_str(), nullptr, MS_BIND, nullptr), 0);
        EXPECT_EQ(user.reasonToKeep("view/me"), "It contains your home folder.");
        umount2(view.c_str(), MNT_DETACH);
    });
    if (!isAllowed)
        GTEST_SKIP() << "no right to mount";
}

TEST(ProtectedPlaces, stayInEveryRunAndShowInEveryPlan) {
    for (const Removal how : {Removal::permanent, Removal::trash}) {
        DeletionStage stage;
        stage.tree.fileWithText("home/work/me/letter", "precious");
        stage.tree.symbolicLink("home/links", "work");
        stage.tree.symbolicLink("home/link", "work");
        stage.places = {{stage.home("work/me"), "It contains your home folder."}};
        std::vector<std::string> paths;
        for (const char* item : {"work", "work/me", "links/me", "work/", "link"})
            paths.push_back(stage.home(item));
        std::vector<DeletionRequest> requests;
        for (const std::string& path : paths)
            requests.push_back(DeletionStage::request(path, how));
        const ExecutedRun run = stage.executor.execute(requests);
        ASSERT_EQ(run.report.skippedProtected.size(), 4U);
        for (const DeletionFailure& skipped : run.report.skippedProtected)
            EXPECT_EQ(skipped.reason, "It contains your home folder.") << skipped.path;
        EXPECT_EQ(run.report.deletedPaths, std::vector<std::string>{stage.home("link")}) << "goes as a link";
        EXPECT_TRUE(stage.tree.exists("home/work/me/letter"));

        const LinuxEntryLookup entries;
        const ItemReview review([&](std::string_view path) { return stage.verdict(path); },
                                [&] { return ProtectedPlaces(stage.places, entries); }, entries);
        const auto items = review.review(paths);
        for (std::size_t i = 0; i < 4; ++i)
            EXPECT_EQ(items[i].verdict, (SafetyVerdict{Risk::protected_, "It contains your home folder."}));
        EXPECT_EQ(items[4].verdict.risk, Risk::safe);
    }
}

TEST(ProtectedPlaces, costNoMoreThanTheVerdictThatEachItemHasAnyway) {
    const User user;
    const ProtectedPlaces places = user.places();
    std::vector<std::string> paths;
    for (int i = 0; i < 50'000; ++i)
        paths.push_back(user.home + "/Documents/Projects/" + std::to_string(i));
    PlacedIdentity identity;
    std::size_t kept = 0;
    const auto lookUp = [&] {
        for (const std::string& path : paths) {
            ++identity.entry.inode;
            kept += places.reasonToKeep(path, identity) ? 1U : 0U;
        }
    };
    const auto judge = [&] {
        for (const std::string& path : paths)
            kept += user.policy.verdict(path).risk == Risk::protected_ ? 1U : 0U;
    };
    EXPECT_LT(medianMilliseconds(5, lookUp), medianMilliseconds(5, judge));
    EXPECT_EQ(kept, 0U);
}

} // namespace
} // namespace brimlet::test
