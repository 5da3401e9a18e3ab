// Every system call of a run fails, or is the process's last, one after the other. The run moves a file and a
// folder to the Trash, one of them from another disk, removes a file and a folder for good, records that, and
// puts two things back. BRIMLET_FAULT_STEP=k takes every k-th call only, for slow builds.

#include "safety/history/DeletionHistory.h"
#include "support/DeletionStage.h"
#include "support/TreeSnapshot.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <optional>
#include <sys/wait.h>
#include <unistd.h>

namespace brimlet::test {
namespace {

using Snapshot = std::map<std::string, std::string>;

struct Item {
    std::string path;
    Removal removal;
    Snapshot whole;
};

/// How many calls lie between two that are made to fail.
int faultStep() {
    const char* step = std::getenv("BRIMLET_FAULT_STEP");
    return step != nullptr ? std::max(1, std::atoi(step)) : 1;
}

enum class Items { all, foldersForTrash };

/// A stage with the items of the run, and what became of them.
struct Scenario {
    DeletionStage stage;
    std::vector<Item> items;
    std::optional<ExecutedRun> run;
    bool recorded = false;

    explicit Scenario(Items which = Items::all) {
        addFolder("folder", Removal::trash);
        stage.tree.directory("home/disk");
        stage.calls.separate(stage.home("disk"));
        addFolder("disk/elsewhere", Removal::trash);
        if (which == Items::foldersForTrash)
            return;
        addFolder("gone", Removal::permanent);
        stage.tree.fileWithText("home/note.txt", "note");
        add("note.txt", Removal::trash);
        stage.tree.fileWithText("home/disk/far.txt", "far");
        add("disk/far.txt", Removal::trash);
        stage.tree.fileWithText("home/single.txt", "single");
        add("single.txt", Removal::permanent);
    }

    void addFolder(const std::string& name, Removal removal) {
        const std::string at = "home/" + name;
        stage.tree.fileWithText(at + "/a.txt", "first");
        stage.tree.fileWithText(at + "/sub/b.txt", "second");
        stage.tree.hardLink(at + "/sub/c.txt", at + "/a.txt");
        stage.tree.symbolicLink(at + "/link", stage.tree.path("outside"));
        add(name, removal);
    }

    void add(const std::string& name, Removal removal) {
        items.push_back({stage.home(name), removal, snapshotOf(stage.home(name))});
    }

    void perform() {
        DeletionHistory history(stage.store, stage.removal);
        std::vector<DeletionRequest> requests;
        for (const Item& item : items)
            requests.push_back(DeletionStage::request(item.path, item.removal));
        run = stage.executor.execute(requests);
        recorded = history.record(*run);
    }

    bool hasFailure(const std::string& path) const {
        const auto& failures = run->report.failures;
        return std::any_of(failures.begin(), failures.end(),
                           [&](const DeletionFailure& failure) { return failure.path == path; });
    }
};

const HistoryEntry* entryFor(const std::vector<HistoryEntry>& entries, const std::string& path) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const HistoryEntry& entry) { return entry.originalPath == path; });
    return found == entries.end() ? nullptr : &*found;
}

/// The promise to the user about one item, given the history: whole in its place, or whole in the Trash with
/// the entry that leads back, or gone for good with its entry.
bool isAccountedFor(const Item& item, const std::vector<HistoryEntry>& entries) {
    const HistoryEntry* entry = entryFor(entries, item.path);
    if (entry != nullptr && entry->trashPath)
        return snapshotOf(*entry->trashPath) == item.whole;
    if (entry != nullptr)
        return snapshotOf(item.path).empty() && item.removal == Removal::permanent;
    return snapshotOf(item.path) == item.whole;
}

/// Whether at least something of an item that was to go for good is in its place, and nothing else is.
bool isPartlyThere(const Item& item) {
    const Snapshot there = snapshotOf(item.path);
    return item.removal == Removal::permanent && !there.empty() &&
           std::all_of(there.begin(), there.end(),
                       [&](const auto& entry) { return item.whole.contains(entry.first); });
}

/// After a run that could report.
void expectHonestReport(const Scenario& scenario) {
    const DeletionReport& report = scenario.run->report;
    ASSERT_EQ(scenario.run->entries.size(), report.deletedPaths.size());
    for (const Item& item : scenario.items) {
        const bool deleted = std::find(report.deletedPaths.begin(), report.deletedPaths.end(), item.path) !=
                             report.deletedPaths.end();
        const bool failed = scenario.hasFailure(item.path);
        EXPECT_TRUE(deleted || failed) << item.path;
        if (deleted && !failed) {
            EXPECT_TRUE(snapshotOf(item.path).empty()) << item.path;
        }
        const bool mayBePartial = failed && item.removal == Removal::permanent;
        if (!mayBePartial) {
            EXPECT_TRUE(isAccountedFor(item, scenario.run->entries)) << item.path;
        }
    }
}

/// After the next start, with all well again.
void expectOrderAfterRestart(Scenario& scenario) {
    scenario.stage.calls.behave();
    if (scenario.run)
        scenario.run->journal.reset(); // as the end of the process would
    DeletionHistory history(scenario.stage.store, scenario.stage.removal);
    EXPECT_EQ(history.entries(), scenario.stage.historyOnDisk());
    for (const Item& item : scenario.items)
        EXPECT_TRUE(isAccountedFor(item, history.entries()) || isPartlyThere(item)) << item.path;
    for (const HistoryEntry& entry : history.entries())
        EXPECT_TRUE(!entry.trashPath || !snapshotOf(*entry.trashPath).empty()) << *entry.trashPath;
    EXPECT_FALSE(scenario.stage.hasScratch());
    EXPECT_EQ(snapshotOf(scenario.stage.tree.path("outside")).size(), 1U);
    for (const std::string& name : valueOf(scenario.stage.store.names()))
        EXPECT_FALSE(isJournalName(name)) << name;
}

constexpr int errors[] = {EACCES, EPERM, EBUSY, EIO, ENOSPC, EROFS, EXDEV, ENOENT, ELOOP, EMFILE, EINTR};

class Faults : public testing::TestWithParam<std::tuple<int, Repeat>> {};

TEST_P(Faults, noItemIsLostAtAnyCall) {
    const auto [error, repeat] = GetParam();
    if (error == EINTR && repeat == Repeat::fromThenOn)
        GTEST_SKIP() << "a call that is always interrupted never ends";
    int performed = 0;
    for (int n = 1; !HasFailure(); n += faultStep()) {
        SCOPED_TRACE("call " + std::to_string(n));
        Scenario scenario;
        scenario.stage.calls.failAt(n, error, repeat);
        scenario.perform();
        const bool reached = scenario.stage.calls.count() >= n;
        scenario.stage.calls.behave();
        expectHonestReport(scenario);
        expectOrderAfterRestart(scenario);
        performed = n;
        if (!reached)
            break;
    }
    EXPECT_GT(performed, 200) << "the run makes fewer calls than it must";
}

std::string faultName(const testing::TestParamInfo<Faults::ParamType>& about) {
    return std::string(strerrorname_np(std::get<0>(about.param))) +
           (std::get<1>(about.param) == Repeat::once ? "Once" : "FromThenOn");
}

INSTANTIATE_TEST_SUITE_P(EachError, Faults,
                         testing::Combine(testing::ValuesIn(errors),
                                          testing::Values(Repeat::once, Repeat::fromThenOn)),
                         faultName);

/// Runs `body` in a process that is killed at its n-th call. Whether it was.
template <class Body>
bool diesAt(int n, DeletionStage& stage, Body body) {
    const pid_t child = fork();
    if (child == 0) {
        stage.calls.dieAt(n);
        body();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

TEST(Kill, theNextStartAccountsForEveryItem) {
    int performed = 1;
    for (bool died = true; died && !testing::Test::HasFailure(); performed += faultStep()) {
        SCOPED_TRACE("call " + std::to_string(performed));
        Scenario scenario;
        died = diesAt(performed, scenario.stage, [&] { scenario.perform(); });
        expectOrderAfterRestart(scenario);
    }
    EXPECT_GT(performed, 200);
}

/// Two items in the Trash, one of which goes back to another disk.
struct RestoreScenario {
    Scenario scenario{Items::foldersForTrash};
    std::vector<HistoryEntry> entries;
    RestoreOutcome outcome;

    RestoreScenario() {
        scenario.perform();
        for (const HistoryEntry& entry : scenario.run->entries) {
            if (entry.trashPath)
                entries.push_back(entry);
        }
    }

    void perform() {
        DeletionHistory history(scenario.stage.store, scenario.stage.removal);
        outcome = history.restore(entries);
    }

    void expectOrder() {
        scenario.stage.calls.behave();
        DeletionHistory history(scenario.stage.store, scenario.stage.removal);
        EXPECT_EQ(history.entries(), scenario.stage.historyOnDisk());
        EXPECT_EQ(history.entries().size(), scenario.items.size());
        for (const Item& item : scenario.items) {
            const HistoryEntry* entry = entryFor(history.entries(), item.path);
            ASSERT_NE(entry, nullptr) << item.path;
            if (!entry->trashPath)
                continue;
            const bool isBack = snapshotOf(item.path) == item.whole;
            EXPECT_EQ(entry->restored, isBack) << item.path;
            EXPECT_TRUE(isBack || snapshotOf(*entry->trashPath) == item.whole) << item.path;
        }
        EXPECT_FALSE(scenario.stage.hasScratch());
    }
};

TEST_P(Faults, nothingIsLostOnTheWayBackAtAnyCall) {
    const auto [error, repeat] = GetParam();
    if (error == EINTR && repeat == Repeat::fromThenOn)
        GTEST_SKIP() << "a call that is always interrupted never ends";
    bool reached = true;
    for (int n = 1; reached && !HasFailure(); n += faultStep()) {
        SCOPED_TRACE("call " + std::to_string(n));
        RestoreScenario restore;
        restore.scenario.stage.calls.failAt(n, error, repeat);
        restore.perform();
        reached = restore.scenario.stage.calls.count() >= n;
        restore.expectOrder();
        EXPECT_EQ(restore.outcome.restored.size() + restore.outcome.refused.size(), restore.entries.size());
        for (const HistoryEntry& entry : restore.outcome.restored)
            EXPECT_FALSE(snapshotOf(entry.originalPath).empty());
    }
}

TEST(Kill, theNextStartKnowsWhatIsBack) {
    bool died = true;
    for (int n = 1; died && !testing::Test::HasFailure(); n += faultStep()) {
        SCOPED_TRACE("call " + std::to_string(n));
        RestoreScenario restore;
        died = diesAt(n, restore.scenario.stage, [&] { restore.perform(); });
        restore.expectOrder();
    }
}

} // namespace
} // namespace brimlet::test
