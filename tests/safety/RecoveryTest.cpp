// What the history does when its own folder, or the disk of an item, refuses it.

#include "core/walk/MeasureTree.h"
#include "platform/ScratchName.h"
#include "safety/HistoryFormat.h"
#include "safety/JournalRecovery.h"
#include "support/DeletionStage.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace brimlet::test {
namespace {

/// A log that can't be read.
class UnreadableLog : public RecordLog {
public:
    Failure append(std::string_view, Durability) override { return errorFromErrno(EIO); }
    Result<std::string> content() override { return errorFromErrno(EIO); }
};

/// A store that refuses calls of one name.
class RefusingStore : public RecordStore {
public:
    explicit RefusingStore(RecordStore& store)
        : m_store(store) {}

    std::string refused;
    int error = EIO;
    int grants = 0; ///< how many of those calls succeed first

    const std::string& folder() const override { return m_store.folder(); }
    Result<std::unique_ptr<RecordLock>> lock() override {
        if (refuses("lock"))
            return errorFromErrno(error);
        return m_store.lock();
    }
    Result<std::optional<std::string>> read(std::string_view name) override {
        if (refuses("read"))
            return errorFromErrno(error);
        return m_store.read(name);
    }
    Failure replace(std::string_view name, std::string_view bytes) override {
        return refuses("replace") ? errorFromErrno(error) : m_store.replace(name, bytes);
    }
    Failure rename(std::string_view name, std::string_view newName) override {
        return refuses("rename") ? errorFromErrno(error) : m_store.rename(name, newName);
    }
    Failure remove(std::string_view name) override { return m_store.remove(name); }
    Result<std::vector<std::string>> names() override {
        if (refuses("names"))
            return errorFromErrno(error);
        return m_store.names();
    }
    Result<std::unique_ptr<RecordLog>> createLog(std::string_view name) override {
        return m_store.createLog(name);
    }
    Result<std::unique_ptr<RecordLog>> adoptLog(std::string_view name) override {
        if (refuses("adoptLog"))
            return errorFromErrno(error);
        if (refuses("content"))
            return std::make_unique<UnreadableLog>();
        return m_store.adoptLog(name);
    }

private:
    bool refuses(std::string_view call) { return call == refused && grants-- <= 0; }

    RecordStore& m_store;
};

/// A removal that notes what recovery asks of it, touches nothing, and knows no identity.
class NotedRemoval : public FileRemoval {
public:
    std::string stuck; ///< scratch that can't be removed
    std::vector<std::string> asked;

    Result<std::unique_ptr<PinnedEntry>> pin(std::string_view, const PlacedIdentity&,
                                             const PinnedEntry*) override {
        return errorFromErrno(EIO);
    }
    PlannedMove planRemoval(std::string_view, const PlacedIdentity&) override { return {}; }
    PlannedMove planTrashing(std::string_view, const PlacedIdentity&, PlannedNumbers&) override { return {}; }
    RemovalOutcome remove(const PinnedEntry&, const PlannedMove&, const BeforeMove&,
                          const std::stop_token&) override {
        return {errorFromErrno(EIO), false, 0, {}, {}};
    }
    Result<TrashArrival> moveToTrash(const PinnedEntry&, const PlannedMove&, const BeforeMove&,
                                     const std::stop_token&) override {
        return errorFromErrno(EIO);
    }
    Failure moveBack(std::string_view, std::string_view, const std::optional<FileIdentity>&,
                     const BeforeMove&) override {
        return errorFromErrno(EIO);
    }
    Result<std::optional<FileIdentity>> identity(std::string_view) override { return errorFromErrno(EIO); }
    Failure removeScratch(std::string_view path, const std::stop_token&) override {
        asked.push_back("remove " + std::string(path));
        return path == stuck ? Failure(errorFromErrno(EIO)) : std::nullopt;
    }
    Failure dropOldName(std::string_view, std::string_view) override { return errorFromErrno(EIO); }
    Failure returnToPlace(std::string_view setAside, std::string_view place) override {
        asked.push_back(std::string(setAside) + " to " + std::string(place));
        return std::nullopt;
    }
};

void leaveJournal(DeletionStage& stage, const std::string& text) {
    std::filesystem::create_directories(stage.store.folder());
    std::ofstream(stage.store.folder() + "/run-dead.journal") << text;
}

bool hasJournal(DeletionStage& stage) {
    const std::vector<std::string> names = valueOf(stage.store.names());
    return std::any_of(names.begin(), names.end(), [](const auto& name) { return isJournalName(name); });
}

/// Both steps of a recovery that yields no entries.
void recoverWholly(DeletionStage& stage, FileRemoval& removal) {
    JournalRecovery recovery(stage.store, removal);
    EXPECT_EQ(recovery.complete().count(), 0U);
    recovery.tidy({});
}

HistoryEntry entryOf(const std::string& path, std::optional<std::string> trashPath = {}) {
    HistoryEntry entry;
    entry.date = historyDateNow();
    entry.originalPath = path;
    entry.trashPath = std::move(trashPath);
    return entry;
}

TEST(JournalRecovery, aRefusedStartLeavesTheRunToTheNextOne) {
    const struct {
        const char* call;
        int grants;
    } cases[] = {{"names", 0},    {"names", 1},   {"lock", 0},   {"lock", 1},
                 {"adoptLog", 0}, {"content", 0}, {"replace", 0}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.call);
        DeletionStage stage;
        stage.tree.fileWithText("home/file", "text");
        ExecutedRun run =
            stage.executor.execute({DeletionStage::request(stage.home("file"), Removal::trash)});
        run.journal.reset();
        RefusingStore store(stage.store);
        store.refused = one.call;
        store.grants = one.grants;
        (void)DeletionHistory(store, stage.removal);
        EXPECT_TRUE(hasJournal(stage));
        EXPECT_TRUE(stage.historyOnDisk().empty());
        EXPECT_EQ(DeletionHistory(stage.store, stage.removal).entries(), run.entries);
        EXPECT_EQ(stage.historyOnDisk(), run.entries);
        EXPECT_FALSE(hasJournal(stage));
    }
}

TEST(JournalRecovery, claimsNothingWhoseWhereaboutsAreUnknown) {
    DeletionStage stage;
    leaveJournal(stage, intentText({IntentKind::trash, entryOf("/a", "/t"), {"/t", "1-1.1", {}, {}}}) +
                            intentText({IntentKind::remove, entryOf("/b"), {}}) +
                            intentText({IntentKind::restore, entryOf("/c", "/u"), {"/c", "1-1.1", {}, {}}}));
    NotedRemoval removal;
    EXPECT_EQ(JournalRecovery(stage.store, removal).complete().count(), 0U);
    EXPECT_TRUE(hasJournal(stage)) << "the next start may learn more";
    const RecoveredEntries later = JournalRecovery(stage.store, stage.removal).complete();
    ASSERT_EQ(later.deleted.size(), 1U);
    EXPECT_EQ(later.deleted.front().originalPath, "/b");
    EXPECT_TRUE(later.restored.empty());
}

TEST(JournalRecovery, aJournalStaysUntilAllItsScratchIsGone) {
    DeletionStage stage;
    leaveJournal(stage, intentText({IntentKind::trash, entryOf("/a"), {{}, {}, {"/1", "/2"}, {}}}) +
                            intentText({IntentKind::trash, entryOf("/b"), {{}, {}, {"/3"}, {}}}));
    NotedRemoval removal;
    const std::vector<std::string> all = {"remove /1", "remove /2", "remove /3"};
    for (const char* stuck : {"/1", "/2", "/3"}) {
        removal.stuck = stuck;
        removal.asked.clear();
        recoverWholly(stage, removal);
        EXPECT_EQ(removal.asked, all) << "one that stays keeps no other from going";
        EXPECT_TRUE(hasJournal(stage));
    }
    removal.stuck.clear();
    recoverWholly(stage, removal);
    EXPECT_FALSE(hasJournal(stage));
}

TEST(JournalRecovery, whatWasSetAsideReturnsToWhereItCameFrom) {
    DeletionStage stage;
    leaveJournal(stage,
                 intentText({IntentKind::trash, entryOf("/a", "/t/a"), {{}, {}, {}, "/aside a"}}) +
                     intentText({IntentKind::restore, entryOf("/b", "/t/b"), {{}, {}, {}, "/aside b"}}));
    NotedRemoval removal;
    EXPECT_EQ(JournalRecovery(stage.store, removal).complete().count(), 0U);
    EXPECT_EQ(removal.asked, (std::vector<std::string>{"/aside a to /a", "/aside b to /t/b"}));
}

TEST(JournalRecovery, anEntryIsGivenOnceAndNoAnswerIsNotAwaitedForEver) {
    DeletionStage stage;
    stage.tree.fileWithText("home/.Trash/t", "text");
    const FileIdentity identity = *valueOf(stage.removal.identity(stage.trash("t")));
    HistoryEntry arrived = entryOf(stage.home("t"), stage.trash("t"));
    arrived.identity = identity;
    HistoryEntry unknown = entryOf(stage.home("gone/c"));
    leaveJournal(stage, intentText({IntentKind::trash, arrived, {stage.trash("t"), identity, {}, {}}}) +
                            intentText({IntentKind::remove, unknown, {}}));
    DeletionHistory first(stage.store, stage.removal);
    EXPECT_EQ(first.entries(), std::vector<HistoryEntry>{arrived});
    EXPECT_TRUE(first.clear());
    EXPECT_TRUE(hasJournal(stage)) << "the folder may come back with its disk";
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).entries().empty()) << "what was cleared stays so";
    unknown.date -= 31.0 * 24 * 3600;
    leaveJournal(stage, intentText({IntentKind::remove, unknown, {}}));
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).entries().empty());
    EXPECT_FALSE(hasJournal(stage));
}

TEST(JournalRecovery, aRemovedFolderWhoseNameIsTakenAgainHasItsEntry) {
    DeletionStage stage;
    stage.tree.fileWithText("home/app/new", "text");
    const HistoryEntry removed = entryOf(stage.home("app"));
    leaveJournal(stage,
                 intentText({IntentKind::remove, removed, {{}, "1-1.1", {}, stage.home(scratchName())}}));
    EXPECT_EQ(DeletionHistory(stage.store, stage.removal).entries(), std::vector<HistoryEntry>{removed});
    EXPECT_TRUE(stage.tree.exists("home/app/new"));
}

TEST(JournalRecovery, theRestOfARemovalReturnsAndIsNotCalledDeleted) {
    for (const bool isTaken : {false, true}) {
        DeletionStage stage;
        const std::string aside = scratchName();
        stage.tree.fileWithText("home/" + aside + "/rest", "text");
        if (isTaken)
            stage.tree.fileWithText("home/app/new", "text");
        leaveJournal(stage, intentText({IntentKind::remove,
                                        entryOf(stage.home("app")),
                                        {{}, "1-1.1", {}, stage.home(aside)}}));
        const DeletionHistory reader(stage.store, stage.removal, HistoryStart::fileOnly);
        EXPECT_TRUE(stage.hasScratch()) << "who only reads changes nothing";
        EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).entries().empty());
        EXPECT_TRUE(stage.tree.exists(isTaken ? "home/app 2/rest" : "home/app/rest"));
        EXPECT_FALSE(stage.hasScratch());
        EXPECT_FALSE(hasJournal(stage));
    }
}

TEST(JournalRecovery, whatWentOfAFolderThatWasBeingRemovedIsTold) {
    DeletionStage stage;
    const std::string aside = scratchName();
    stage.tree.file("home/" + aside + "/rest", 1 << 16);
    HistoryEntry entry = entryOf(stage.home("app"));
    entry.size = 1 << 20;
    leaveJournal(stage, intentText({IntentKind::remove, entry, {{}, "1-1.1", {}, stage.home(aside)}}));
    const std::vector<HistoryEntry> told = DeletionHistory(stage.store, stage.removal).entries();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told.front().size, entry.size - measureTree(stage.home("app")).bytes);
    EXPECT_LT(told.front().size, entry.size);
    EXPECT_FALSE(hasJournal(stage));
}

TEST(JournalRecovery, whatWentBeforeACrashIsToldWhenTheRestHadStayed) {
    DeletionStage stage;
    for (const char* file : {"item/gone", "item/kept", "after"})
        stage.tree.file("home/" + std::string(file), 8192);
    stage.calls.onCall = [&](const SystemCall& call) {
        stage.calls.behave();
        if (std::string_view(call.call) == "unlink" && std::string_view(call.name) == "kept")
            stage.calls.failAt(1, EPERM);
    };
    ExecutedRun run =
        stage.executor.execute({DeletionStage::request(stage.home("item"), Removal::permanent, 1 << 20),
                                DeletionStage::request(stage.home("after"), Removal::permanent)});
    ASSERT_EQ(run.parts.size(), 1U);
    run.journal.reset(); // as if it had died before the history was written
    stage.calls.onCall = {};
    stage.calls.behave();
    const std::vector<HistoryEntry> told = DeletionHistory(stage.store, stage.removal).entries();
    EXPECT_EQ(told, (std::vector<HistoryEntry>{run.parts.front(), run.entries.front()}));
    EXPECT_TRUE(stage.tree.exists("home/item/kept"));
}

/// Forecasts are carried out in order: behind the first that is still there nothing was begun, and what is
/// gone all the same its owner has removed.
TEST(JournalRecovery, whatTheUserRemovedAfterACrashIsNotCalledDeleted) {
    DeletionStage stage;
    const auto intentFor = [&](const char* name) {
        return Intent{IntentKind::remove, entryOf(stage.home(name)), {{}, "1-1.1", {}, {}}};
    };
    stage.tree.fileWithText("home/refused", "text");
    stage.tree.fileWithText("home/waiting", "text");
    Intent refused = intentFor("refused");
    refused.move.identity = *valueOf(stage.removal.identity(stage.home("refused")));
    Intent waiting = intentFor("waiting");
    waiting.move.identity = *valueOf(stage.removal.identity(stage.home("waiting")));
    Intent begun = intentFor("noted in its turn");
    begun.isBegun = true;
    const Intent first = intentFor("first");
    const Intent second = intentFor("second");
    std::string text;
    for (const Intent& intent : {first, refused, second, waiting, intentFor("removed by its owner"), begun})
        text += intentText(intent);
    leaveJournal(stage, text + droppedText(refused.entry.id));
    EXPECT_EQ(DeletionHistory(stage.store, stage.removal).entries(),
              (std::vector<HistoryEntry>{first.entry, second.entry, begun.entry}));
    EXPECT_FALSE(hasJournal(stage));
}

/// Where no rename is exclusive, a file has both names for a moment.
TEST(JournalRecovery, aMoveThatDiedBetweenItsTwoNamesIsEnded) {
    for (const bool isRestore : {false, true}) {
        DeletionStage stage;
        stage.tree.fileWithText("home/file", "text");
        stage.tree.directory("home/.Trash");
        stage.tree.hardLink("home/.Trash/file", "home/file");
        stage.tree.hardLink("home/other name", "home/file");
        const FileIdentity identity = *valueOf(stage.removal.identity(stage.trash("file")));
        HistoryEntry entry = entryOf(stage.home("file"));
        if (isRestore)
            entry.trashPath = stage.trash("file");
        leaveJournal(stage,
                     intentText({isRestore ? IntentKind::restore : IntentKind::trash,
                                 entry,
                                 {isRestore ? stage.home("file") : stage.trash("file"), identity, {}, {}}}));
        (void)DeletionHistory(stage.store, stage.removal);
        EXPECT_EQ(stage.tree.exists("home/file"), isRestore);
        EXPECT_EQ(stage.tree.exists("home/.Trash/file"), !isRestore);
        EXPECT_TRUE(stage.tree.exists("home/other name"));
        EXPECT_FALSE(hasJournal(stage));
    }
}

TEST(JournalRecovery, anOriginalSetAsideWaitsForItsDisk) {
    DeletionStage stage;
    stage.tree.directory("home/.Trash");
    const std::string aside = scratchName();
    leaveJournal(stage, intentText({IntentKind::trash,
                                    entryOf(stage.home("disk/item"), stage.trash("item")),
                                    {stage.trash("item"), "1-1.1", {}, stage.home("disk/" + aside)}}));
    (void)DeletionHistory(stage.store, stage.removal);
    EXPECT_TRUE(hasJournal(stage));
    stage.tree.fileWithText("home/disk/" + aside + "/file", "text");
    stage.tree.fileWithText("home/disk/item", "another");
    (void)DeletionHistory(stage.store, stage.removal);
    EXPECT_TRUE(stage.tree.exists("home/disk/item 2/file")) << "beside what has its name now";
    EXPECT_FALSE(hasJournal(stage));
}

TEST(History, aDamagedFileThatCannotBeKeptIsNotOverwritten) {
    for (const int error : {EEXIST, EIO}) {
        DeletionStage stage;
        RefusingStore store(stage.store);
        DeletionHistory history(store, stage.removal);
        std::filesystem::create_directories(store.folder());
        std::ofstream(history.filePath()) << "damaged";
        store.refused = "rename";
        store.error = error;
        EXPECT_FALSE(history.append({entryOf("/a")}));
        EXPECT_EQ(valueOf(stage.store.read("history.json")), "damaged");
        store.refused.clear();
        EXPECT_TRUE(history.save());
        EXPECT_EQ(stage.historyOnDisk(), history.entries());
    }
}

TEST(History, aFileThatCannotBeReadForTheMomentKeepsItsEntries) {
    DeletionStage stage;
    const HistoryEntry old = entryOf("/old");
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).append({old}));
    RefusingStore store(stage.store);
    store.refused = "read";
    store.error = EMFILE;
    DeletionHistory history(store, stage.removal);
    const HistoryEntry added = entryOf("/new");
    EXPECT_FALSE(history.append({added}));
    EXPECT_EQ(stage.historyOnDisk(), std::vector<HistoryEntry>{old});
    EXPECT_EQ(history.entries(), std::vector<HistoryEntry>{added}) << "the way back is still offered";
    store.refused.clear();
    EXPECT_TRUE(history.save());
    EXPECT_EQ(stage.historyOnDisk(), (std::vector<HistoryEntry>{added, old}));
}

TEST(History, aRunWithoutAJournalIsRecordedToo) {
    DeletionStage stage;
    DeletionHistory history(stage.store, stage.removal);
    ExecutedRun run;
    EXPECT_TRUE(history.record(run));
    EXPECT_TRUE(history.entries().empty());
    run.entries = {entryOf("/a")};
    EXPECT_TRUE(history.record(run));
    EXPECT_EQ(stage.historyOnDisk(), run.entries);
}

TEST(History, offersToRestoreOnlyWhatCanComeBack) {
    DeletionStage stage;
    for (const char* name : {"gone", "back", "emptied", "taken", "ready"})
        stage.tree.fileWithText("home/" + std::string(name), "text");
    const auto trashed = [&](const char* name) {
        return stage.run(stage.home(name), Removal::trash).entries.front();
    };
    const HistoryEntry gone = stage.run(stage.home("gone"), Removal::permanent).entries.front();
    HistoryEntry back = trashed("back");
    back.restored = true;
    const HistoryEntry emptied = trashed("emptied");
    std::filesystem::remove(*emptied.trashPath);
    const HistoryEntry taken = trashed("taken");
    stage.tree.fileWithText("home/taken", "another");
    const HistoryEntry ready = trashed("ready");
    DeletionHistory history(stage.store, stage.removal);
    for (const HistoryEntry& entry : {gone, back, emptied, taken})
        EXPECT_FALSE(history.canRestore(entry)) << entry.originalPath;
    EXPECT_EQ(history.restoreIfPossible(taken)->description, "Something else is in its place now.");
    EXPECT_TRUE(history.canRestore(ready));
    EXPECT_FALSE(history.restoreIfPossible(ready));
    EXPECT_TRUE(stage.tree.exists("home/ready"));
}

TEST(History, aTrashNameThatWasUsedAgainRestoresTheLaterItem) {
    DeletionStage stage;
    stage.tree.fileWithText("home/one/a", "one");
    stage.tree.fileWithText("home/two/a", "two");
    const HistoryEntry first = stage.run(stage.home("one/a"), Removal::trash).entries.front();
    stage.run(stage.trash("a"), Removal::permanent);
    const HistoryEntry second = stage.run(stage.home("two/a"), Removal::trash).entries.front();
    ASSERT_EQ(first.trashPath, second.trashPath);
    DeletionHistory history(stage.store, stage.removal);
    EXPECT_FALSE(history.canRestore(first));
    EXPECT_EQ(history.restoreIfPossible(first)->description, "It is no longer in the Trash.");
    EXPECT_FALSE(history.restoreIfPossible(second));
    EXPECT_TRUE(stage.tree.exists("home/two/a"));
    EXPECT_FALSE(stage.tree.exists("home/one/a"));
}

TEST(Executor, judgesWhereALinkedFolderLeads) {
    for (const bool isProtected : {true, false}) {
        DeletionStage stage;
        stage.tree.fileWithText("home/real/file", "text");
        std::filesystem::create_directory_symlink(stage.home("real"), stage.home("link"));
        if (isProtected)
            stage.protectedFolder = stage.home("real");
        const ExecutedRun run =
            stage.executor.execute({DeletionStage::request(stage.home("link/file"), Removal::permanent)});
        EXPECT_EQ(run.report.skippedProtected.size(), isProtected ? 1U : 0U);
        EXPECT_EQ(stage.tree.exists("home/real/file"), isProtected);
    }
}

template <class Record>
void expectEachChangeToShow(const Record& record, const std::vector<void (*)(Record&)>& changes) {
    EXPECT_EQ(Record(record), record);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        Record changed = record;
        changes[i](changed);
        EXPECT_FALSE(changed == record) << "change " << i;
    }
}

TEST(Planning, recordsDifferByEachField) {
    expectEachChangeToShow<PlanItem>({"/a", "a", 1, Removal::trash, {Risk::safe, "why"}},
                                     {
                                         [](PlanItem& item) { item.path = "/b"; },
                                         [](PlanItem& item) { item.name = "b"; },
                                         [](PlanItem& item) { item.size = 2; },
                                         [](PlanItem& item) { item.removal = Removal::permanent; },
                                         [](PlanItem& item) { item.verdict.risk = Risk::review; },
                                         [](PlanItem& item) { item.verdict.reason = "else"; },
                                     });
    expectEachChangeToShow<HistoryEntry>(entryOf("/a"),
                                         {
                                             [](HistoryEntry& entry) { entry.id = Uuid::random(); },
                                             [](HistoryEntry& entry) { entry.date = 1; },
                                             [](HistoryEntry& entry) { entry.originalPath = "/b"; },
                                             [](HistoryEntry& entry) { entry.trashPath = "/t"; },
                                             [](HistoryEntry& entry) { entry.size = 1; },
                                             [](HistoryEntry& entry) { entry.restored = true; },
                                         });
}

} // namespace
} // namespace brimlet::test
