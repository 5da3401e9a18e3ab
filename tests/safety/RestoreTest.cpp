// The way back from the Trash: only what went in comes back, and many items come back as cheaply as one.

#include "support/DeletionStage.h"
#include "support/Privileges.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <sys/stat.h>

namespace brimlet::test {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

/// A history that has moved files of these names to the Trash.
struct Trashed {
    DeletionStage stage;
    DeletionHistory history{stage.store, stage.removal};
    std::vector<HistoryEntry> entries;

    explicit Trashed(const std::vector<std::string>& names) {
        std::vector<DeletionRequest> requests;
        for (const std::string& name : names) {
            stage.tree.fileWithText("home/" + name, "content of " + name);
            requests.push_back(DeletionStage::request(stage.home(name), Removal::trash));
        }
        const ExecutedRun run = stage.executor.execute(requests);
        EXPECT_TRUE(history.record(run));
        entries = run.entries;
    }
};

std::string reasonFor(const RestoreOutcome& outcome) {
    return outcome.refused.empty() ? "" : outcome.refused.front().error.description;
}

TEST(Restore, aStaleListBringsBackNothingElse) {
    for (const bool knowsIdentity : {true, false}) {
        Trashed ours({"letter"});
        if (!knowsIdentity)
            ours.entries.front().identity.reset();
        DeletionHistory theirs(ours.stage.store, ours.stage.removal);
        ASSERT_EQ(theirs.restore(theirs.entries()).restored.size(), 1U);
        fs::rename(ours.stage.home("letter"), ours.stage.home("kept"));
        ours.stage.tree.fileWithText("home/letter", "another letter");
        ASSERT_TRUE(theirs.record(ours.stage.executor.execute(
            {DeletionStage::request(ours.stage.home("letter"), Removal::trash)})));
        EXPECT_EQ(reasonFor(ours.history.restore(ours.entries)), "It has been restored already.");
        EXPECT_TRUE(ours.history.entries().front().restored) << "the list has learned it";
        EXPECT_TRUE(theirs.clear());
        HistoryEntry unlisted = ours.entries.front();
        unlisted.id = Uuid::random();
        if (knowsIdentity) {
            EXPECT_EQ(reasonFor(ours.history.restore(std::vector<HistoryEntry>{unlisted})),
                      "Something else has its name in the Trash now.");
        }
        EXPECT_EQ(contentOf(ours.stage.trash("letter")), "another letter");
    }
}

TEST(Restore, whatHasTakenItsNameInTheTrashStays) {
    Trashed trashed({"letter"});
    EXPECT_TRUE(trashed.history.canRestore(trashed.entries.front()));
    fs::remove(trashed.stage.trash("letter"));
    trashed.stage.tree.fileWithText("home/.Trash/letter", "put there by hand");
    EXPECT_FALSE(trashed.history.canRestore(trashed.entries.front()));
    EXPECT_EQ(reasonFor(trashed.history.restore(trashed.entries)),
              "Something else has its name in the Trash now.");
    EXPECT_FALSE(trashed.stage.tree.exists("home/letter"));
}

TEST(Restore, whatSlipsInAtTheLastMomentGoesBackToTheTrash) {
    Trashed trashed({"letter"});
    bool isSwapped = false;
    trashed.stage.calls.onCall = [&](const SystemCall& call) {
        if (isSwapped || std::string_view(call.call) != "rename" || std::string_view(call.name) != "letter")
            return;
        isSwapped = true;
        fs::remove(trashed.stage.trash("letter"));
        trashed.stage.tree.fileWithText("home/.Trash/letter", "put there by another");
    };
    EXPECT_EQ(trashed.history.restore(trashed.entries).restored.size(), 0U);
    EXPECT_TRUE(isSwapped);
    EXPECT_FALSE(trashed.stage.tree.exists("home/letter"));
    EXPECT_EQ(contentOf(trashed.stage.trash("letter")), "put there by another");
}

TEST(Restore, oneRefusalDoesNotEndTheOthers) {
    Trashed trashed({"first", "second", "third", "fourth"});
    trashed.stage.tree.fileWithText("home/second", "in its place");
    fs::remove(trashed.stage.trash("third"));
    const RestoreOutcome outcome = trashed.history.restore(trashed.entries);
    ASSERT_EQ(outcome.restored.size(), 2U);
    EXPECT_EQ(outcome.restored.front().originalPath, trashed.stage.home("first"));
    EXPECT_EQ(outcome.restored.back().originalPath, trashed.stage.home("fourth"));
    ASSERT_EQ(outcome.refused.size(), 2U);
    EXPECT_EQ(outcome.refused.front().error.description, "Something else is in its place now.");
    EXPECT_EQ(outcome.refused.back().error.description, "It is no longer in the Trash.");
    EXPECT_EQ(contentOf(trashed.stage.home("second")), "in its place");
    EXPECT_EQ(trashed.stage.historyOnDisk(), trashed.history.entries());
}

TEST(Restore, aStopLeavesTheRestInTheTrash) {
    Trashed trashed({"first", "second", "third"});
    std::stop_source stop;
    trashed.stage.calls.onCall = [&](const SystemCall& call) {
        if (std::string_view(call.call) == "rename" && std::string_view(call.name) == "second")
            stop.request_stop();
    };
    const RestoreOutcome outcome = trashed.history.restoring(trashed.entries)(stop.get_token());
    EXPECT_EQ(outcome.restored.size(), 2U);
    EXPECT_EQ(reasonFor(outcome), "The restore was stopped before this.");
    EXPECT_EQ(trashed.stage.trashNames(), std::vector<std::string>{"third"});
    DeletionHistory afterRestart(trashed.stage.store, trashed.stage.removal);
    EXPECT_EQ(afterRestart.restore(trashed.entries).restored.size(), 1U);
}

TEST(Restore, goesOnBesideTheHistoryThatItChanges) {
    Trashed trashed({"letter"});
    const auto work = trashed.history.restoring(trashed.entries);
    HistoryEntry meanwhile;
    meanwhile.originalPath = "/meanwhile";
    EXPECT_TRUE(trashed.history.append({meanwhile}));
    const RestoreOutcome outcome = work({});
    HistoryEntry later;
    later.originalPath = "/later";
    EXPECT_TRUE(trashed.history.append({later}));
    trashed.history.adopt(outcome);
    ASSERT_EQ(trashed.history.entries().size(), 3U);
    EXPECT_TRUE(trashed.history.entries().back().restored);
    EXPECT_EQ(trashed.stage.historyOnDisk(), trashed.history.entries());
}

TEST(Restore, ofManyItemsSyncsLikeThatOfOne) {
    std::vector<std::string> names;
    for (int i = 0; i < 1'000; ++i)
        names.push_back("item" + std::to_string(i));
    Trashed trashed(names);
    std::vector<HistoryEntry> others(4'000);
    for (std::size_t i = 0; i < others.size(); ++i) {
        others[i].originalPath = "/others/" + std::to_string(i);
        others[i].trashPath = trashed.stage.trash("gone" + std::to_string(i));
    }
    ASSERT_TRUE(trashed.history.append(others));
    std::map<std::string, int> syncs;
    trashed.stage.calls.onCall = [&](const SystemCall& call) {
        if (std::string_view(call.call).starts_with("sync"))
            ++syncs[call.call];
    };
    RestoreOutcome outcome;
    const std::clock_t before = std::clock();
    outcome = trashed.history.restore(trashed.entries);
    const double processorSeconds = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    EXPECT_EQ(outcome.restored.size(), 1'000U);
    int count = 0;
    for (const auto& [call, times] : syncs)
        count += times;
    EXPECT_LE(count, 8);
    EXPECT_LT(processorSeconds, 2.0) << "the rest is waiting for the syncs";
}

TEST(History, aFileThatMayNotBeReadIsNotDamaged) {
    DeletionStage stage;
    HistoryEntry entry;
    entry.originalPath = "/a";
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).append({entry}));
    const std::string file = stage.store.folder() + "/history.json";
    ASSERT_EQ(chmod(file.c_str(), 0), 0);
    {
        const OrdinaryRights rights;
        DeletionHistory history(stage.store, stage.removal);
        EXPECT_FALSE(history.append({entry}));
        EXPECT_FALSE(history.save());
    }
    ASSERT_EQ(chmod(file.c_str(), 0600), 0);
    EXPECT_EQ(stage.historyOnDisk(), std::vector<HistoryEntry>{entry});
    for (const std::string& name : valueOf(stage.store.names()))
        EXPECT_FALSE(name.starts_with("history.damaged-")) << name;
}

} // namespace
} // namespace brimlet::test
