// Another process swaps folders for links, and back, at every depth, while they are removed and moved to the
// Trash. BRIMLET_RACE_SECONDS says for how long each race is run.

#include "support/DeletionStage.h"
#include "support/TreeSnapshot.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace brimlet::test {
namespace {

using Clock = std::chrono::steady_clock;

std::chrono::seconds raceTime() {
    const char* seconds = std::getenv("BRIMLET_RACE_SECONDS");
    return std::chrono::seconds(seconds != nullptr ? std::atoi(seconds) : 5);
}

/// A process that exchanges folders with links to `target` and back, until it goes. It reaches them itself
/// without following links.
class Swapper {
public:
    /// chain   names of folders, each in the one before, the first in `folder`
    Swapper(const std::string& folder, const std::vector<std::string>& chain, const std::string& target) {
        m_process = fork();
        if (m_process == 0)
            swapForEver(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), chain, target);
    }
    ~Swapper() {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
    Swapper(const Swapper&) = delete;
    Swapper& operator=(const Swapper&) = delete;

private:
    [[noreturn]] static void swapForEver(int folder, const std::vector<std::string>& chain,
                                         const std::string& target) {
        for (;;) {
            int at = dup(folder);
            for (const std::string& name : chain) {
                const std::string link = name + ".swap";
                symlinkat(target.c_str(), at, link.c_str());
                renameat2(at, link.c_str(), at, name.c_str(), RENAME_EXCHANGE);
                renameat2(at, link.c_str(), at, name.c_str(), RENAME_EXCHANGE);
                unlinkat(at, link.c_str(), 0);
                const int below = openat(at, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
                close(at);
                at = below;
            }
            close(at);
        }
    }

    pid_t m_process;
};

constexpr const char* levels[] = {"", "/b", "/b/c", "/b/c/d"};

/// A tree whose names are those of the canaries, so that a followed link would hit them. It is made out of
/// the swapper's reach and then put in its place; what the swapper left there is put away.
void placeVictim(const DeletionStage& stage, int round) {
    const std::string number = std::to_string(round);
    const std::string top = stage.home("stage/a");
    for (const char* folder : levels) {
        for (int i = 0; i < 8; ++i)
            stage.tree.file("home/made/" + number + folder + "/file" + std::to_string(i), 16);
    }
    rename(top.c_str(), stage.home("put-away/" + number).c_str());
    rename((top + ".swap").c_str(), stage.home("put-away/swap" + number).c_str());
    rename(stage.home("made/" + number).c_str(), top.c_str());
}

enum class Way { rename, copy };

void race(Removal how, Way way) {
    DeletionStage stage;
    for (const char* folder : levels) {
        for (int i = 0; i < 8; ++i)
            stage.tree.fileWithText(std::string("outside") + folder + "/file" + std::to_string(i), "alive");
    }
    const auto canaries = snapshotOf(stage.tree.path("outside"));
    stage.protectedFolder = stage.tree.path("outside");
    if (way == Way::copy)
        stage.calls.separate(stage.trash());
    for (const char* folder : {"home/stage", "home/made", "home/put-away"})
        stage.tree.directory(folder);
    const Swapper swapper(stage.home("stage"), {"a", "b", "c", "d"}, stage.tree.path("outside"));
    std::size_t removed = 0;
    const auto end = Clock::now() + raceTime();
    for (int round = 0; Clock::now() < end; ++round) {
        placeVictim(stage, round);
        for (const char* path : {"stage/a/b/c", "stage/a/b", "stage/a"}) {
            // The guard ends the program if a call is about to work outside.
            removed += stage.executor.execute({DeletionStage::request(stage.home(path), how)})
                           .report.deletedPaths.size();
        }
    }
    EXPECT_GT(removed, 20U);
    EXPECT_EQ(snapshotOf(stage.tree.path("outside")), canaries);
}

TEST(Race, removalNeverLeavesTheTree) {
    race(Removal::permanent, Way::rename);
}

TEST(Race, movesToTheTrashNeverLeaveTheTree) {
    race(Removal::trash, Way::rename);
}

TEST(Race, copiesToTheTrashNeverLeaveTheTree) {
    race(Removal::trash, Way::copy);
}

/// The policy has nothing against the link's target, whose entries have the same names: only that they are
/// others than were reviewed keeps them.
void raceWithoutProtection(Removal how) {
    constexpr int items = 1000;
    DeletionStage stage;
    for (const char* folder : {"home/documents", "home/stage/cache"}) {
        for (int i = 0; i < items; ++i)
            stage.tree.fileWithText(std::string(folder) + "/" + std::to_string(i) + "/file", "alive");
    }
    const auto documents = snapshotOf(stage.home("documents"));
    std::vector<DeletionRequest> requests;
    for (int i = 0; i < items; ++i)
        requests.push_back(DeletionStage::request(stage.home("stage/cache/" + std::to_string(i)), how));
    const Swapper swapper(stage.home("stage"), {"cache"}, stage.home("documents"));
    std::size_t refused = 0;
    const auto end = Clock::now() + raceTime();
    for (std::size_t next = 0; next < requests.size() && Clock::now() < end;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // the other side gets a core too
        const ExecutedRun run = stage.executor.execute({requests[next]});
        next += run.entries.size();
        for (const DeletionFailure& failure : run.report.failures)
            refused += failure.reason == "It has changed since it was reviewed." ? 1U : 0U;
    }
    EXPECT_GT(refused, 0U);
    EXPECT_EQ(snapshotOf(stage.home("documents")), documents);
}

TEST(Race, onlyWhatWasReviewedIsRemoved) {
    raceWithoutProtection(Removal::permanent);
}

TEST(Race, onlyWhatWasReviewedIsMovedToTheTrash) {
    raceWithoutProtection(Removal::trash);
}

TEST(Race, aTrashSwappedForALinkReceivesNothing) {
    DeletionStage stage;
    stage.tree.directory("home/.Trash");
    const auto canaries = snapshotOf(stage.tree.path("outside"));
    const Swapper swapper(stage.home(), {".Trash"}, stage.tree.path("outside"));
    std::size_t moved = 0;
    std::size_t refused = 0;
    const auto end = Clock::now() + raceTime();
    for (int round = 0; Clock::now() < end; ++round) {
        const std::string name = std::to_string(round);
        stage.tree.file("home/" + name, 16);
        const ExecutedRun run =
            stage.executor.execute({DeletionStage::request(stage.home(name), Removal::trash)});
        moved += run.entries.size();
        refused += run.report.failures.size();
    }
    EXPECT_GT(moved, 0U);
    EXPECT_GT(refused, 0U);
    EXPECT_EQ(snapshotOf(stage.tree.path("outside")), canaries);
}

} // namespace
} // namespace brimlet::test
