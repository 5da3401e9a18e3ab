// The history file: its format, its limits, and what happens to it when it is damaged or shared.

#include "platform/linux/LinuxEntryLookup.h"
#include "safety/DeletionPlanning.h"
#include "safety/HistoryFormat.h"
#include "support/DeletionStage.h"
#include "tables/SystemTables.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brimlet::test {
namespace {

HistoryEntry entryNamed(const std::string& path, double date = 1) {
    HistoryEntry entry;
    entry.date = date;
    entry.originalPath = path;
    return entry;
}

std::vector<std::string> pathsOf(const std::vector<HistoryEntry>& entries) {
    std::vector<std::string> paths;
    for (const HistoryEntry& entry : entries)
        paths.push_back(entry.originalPath);
    return paths;
}

TEST(HistoryFormat, isTheOneThatOthersRead) {
    HistoryEntry trashed = entryNamed("/Users/me/caf\xe9", 700000000.25);
    trashed.id = *Uuid::fromText("0f0e0d0c-0b0a-4908-8706-050403020100");
    trashed.trashPath = "/Users/me/.Trash/caf\xe9";
    trashed.size = 4096;
    trashed.identity = "12-34.5";
    HistoryEntry removed = entryNamed("/tmp/x", 1);
    removed.id = trashed.id;
    removed.restored = true;
    const std::string text = historyText({trashed, removed});
    EXPECT_EQ(text, R"([{"id":"0F0E0D0C-0B0A-4908-8706-050403020100","date":700000000.25,)"
                    R"("originalPath":"/Users/me/caf\udce9","trashPath":"/Users/me/.Trash/caf\udce9",)"
                    R"("size":4096,"restored":false,"identity":"12-34.5"},)"
                    R"({"id":"0F0E0D0C-0B0A-4908-8706-050403020100","date":1.0,"originalPath":"/tmp/x",)"
                    R"("size":0,"restored":true}])");
    EXPECT_EQ(historyFromText(text), (std::vector<HistoryEntry>{trashed, removed}));
    HistoryEntry now = entryNamed("/tmp/now", historyDateNow());
    EXPECT_EQ(historyFromText(historyText({now}))->front().date, now.date) << "to the last bit";
}

TEST(HistoryFormat, toleratesNumbersAndKeysButNoLack) {
    const std::string id = R"("id":"0F0E0D0C-0B0A-4908-8706-050403020100",)";
    const std::string path = R"("originalPath":"/a",)";
    const struct {
        std::string object;
        bool isRead;
    } cases[] = {
        {id + path + R"("date":5,"size":7.0,"restored":false)", true},
        {id + path + R"("date":5.5,"size":-1,"restored":true,"trashPath":null,"more":[1])", true},
        {id + path + R"("date":5.5,"size":1,"restored":true,"identity":7)", true},
        {id + path + R"("date":5.5,"size":1e18,"restored":true)", true},
        {id + path + R"("date":5.5,"size":1e19,"restored":true)", false},
        {id + path + R"("date":5.5,"size":18446744073709551615,"restored":true)", false},
        {id + path + R"("date":5.5,"size":0.5,"restored":true)", false},
        {id + path + R"("date":5.5,"size":"1","restored":true)", false},
        {id + path + R"("date":"5","size":1,"restored":true)", false},
        {id + path + R"("date":5,"size":1,"restored":0)", false},
        {id + path + R"("date":5,"size":1)", false},
        {id + path + R"("date":5,"size":1,"restored":true,"trashPath":1)", false},
        {id + R"("date":5,"size":1,"restored":true)", false},
        {id + R"("originalPath":1,"date":5,"size":1,"restored":true)", false},
        {path + R"("date":5,"size":1,"restored":true)", false},
        {R"("id":"0F0E0D0C-0B0A-4908-8706-05040302010/",)" + path + R"("date":5,"size":1,"restored":true)",
         false},
        {R"("id":"0F0E0D0C-0B0A-4908-8706-05040302010@",)" + path + R"("date":5,"size":1,"restored":true)",
         false},
        {R"("id":"0F0E0D0C-0B0A-4908-8706-05040302010~",)" + path + R"("date":5,"size":1,"restored":true)",
         false},
        {id + path + R"("size":1,"restored":true)", false},
        {id + path + R"("date":5,"restored":true)", false},
        {id + path + R"("date":5,"size":-1e19,"restored":true)", false},
        {R"("id":1,)" + path + R"("date":5,"size":1,"restored":true)", false},
        {R"("id":"0F0E0D0C-0B0A-4908-8706-05040302010",)" + path + R"("date":5,"size":1,"restored":true)",
         false},
        {R"("id":"0F0E0D0C-0B0A-4908-8706_050403020100",)" + path + R"("date":5,"size":1,"restored":true)",
         false},
        {R"("id":"0F0E0D0C-0B0A-4908-8706-05040302010G",)" + path + R"("date":5,"size":1,"restored":true)",
         false},
    };
    for (const auto& one : cases)
        EXPECT_EQ(historyFromText("[{" + one.object + "}]").has_value(), one.isRead) << one.object;
    for (const char* text : {"", "{}", "[1]", "[", "null"})
        EXPECT_FALSE(historyFromText(text)) << text;
    EXPECT_TRUE(historyFromText("[]"));
}

TEST(History, keepsTheNewestFiveThousand) {
    DeletionStage stage;
    DeletionHistory history(stage.store, stage.removal);
    std::vector<HistoryEntry> many;
    for (int i = 0; i < 5000; ++i)
        many.push_back(entryNamed("/old/" + std::to_string(i)));
    EXPECT_TRUE(history.append(many));
    EXPECT_TRUE(history.append({entryNamed("/new/1"), entryNamed("/new/2")}));
    ASSERT_EQ(history.entries().size(), 5000U);
    EXPECT_EQ(history.entries().front().originalPath, "/new/1");
    EXPECT_EQ(history.entries().back().originalPath, "/old/4997");
    EXPECT_EQ(stage.historyOnDisk(), history.entries());
}

TEST(History, aDamagedFileIsKeptBesideTheNewOne) {
    for (const bool isReadable : {true, false}) {
        DeletionStage stage;
        const std::string file = stage.store.folder() + "/history.json";
        if (isReadable)
            std::ofstream(file) << "[{\"id\":";
        else
            std::filesystem::create_directory(file);
        DeletionHistory history(stage.store, stage.removal);
        EXPECT_TRUE(history.entries().empty());
        EXPECT_TRUE(stage.tree.exists("home/Library/Application Support/Brimlet/history.json"));
        EXPECT_TRUE(history.append({entryNamed("/a")}));
        EXPECT_EQ(pathsOf(stage.historyOnDisk()), std::vector<std::string>{"/a"});
        int kept = 0;
        for (const std::string& name : valueOf(stage.store.names()))
            kept += name.starts_with("history.damaged-") && name.ends_with(".json") ? 1 : 0;
        EXPECT_EQ(kept, 1);
    }
}

TEST(History, twoDamagedFilesOfOneSecondAreBothKept) {
    DeletionStage stage;
    DeletionHistory history(stage.store, stage.removal);
    for (int i = 0; i < 3; ++i) {
        std::ofstream(history.filePath()) << "damaged";
        EXPECT_TRUE(history.save());
    }
    int kept = 0;
    for (const std::string& name : valueOf(stage.store.names()))
        kept += name.starts_with("history.damaged-") ? 1 : 0;
    EXPECT_EQ(kept, 3);
}

TEST(History, processesNeverLoseEachOthersEntries) {
    DeletionStage stage;
    constexpr int processes = 4;
    constexpr int each = 25;
    for (int process = 0; process < processes; ++process) {
        if (fork() != 0)
            continue;
        DeletionHistory history(stage.store, stage.removal);
        for (int i = 0; i < each; ++i)
            history.append({entryNamed(std::to_string(process) + "/" + std::to_string(i))});
        _exit(0);
    }
    while (wait(nullptr) > 0) {
    }
    EXPECT_EQ(stage.historyOnDisk().size(), static_cast<std::size_t>(processes * each));
}

TEST(History, whatEitherProcessDidShowsInBoth) {
    DeletionStage stage;
    DeletionHistory ours(stage.store, stage.removal);
    stage.tree.fileWithText("home/file", "text");
    const ExecutedRun run =
        stage.executor.execute({DeletionStage::request(stage.home("file"), Removal::trash)});
    EXPECT_TRUE(ours.record(run));
    DeletionHistory theirs(stage.store, stage.removal);
    EXPECT_FALSE(theirs.restore(run.entries.front()));
    EXPECT_TRUE(theirs.append({entryNamed("/theirs", 2e9)}));
    EXPECT_TRUE(ours.append({entryNamed("/ours", 1e9)}));
    EXPECT_EQ(pathsOf(ours.entries()), (std::vector<std::string>{"/theirs", "/ours", stage.home("file")}));
    EXPECT_TRUE(ours.entries().back().restored);
    EXPECT_TRUE(ours.clear());
    EXPECT_TRUE(theirs.save());
    EXPECT_TRUE(theirs.entries().empty());
    EXPECT_TRUE(theirs.append({entryNamed("/after")}));
    std::filesystem::remove(theirs.filePath());
    EXPECT_TRUE(theirs.append({entryNamed("/again")}));
    EXPECT_EQ(pathsOf(stage.historyOnDisk()), (std::vector<std::string>{"/again", "/after"}))
        << "a file that was deleted takes nothing from the list";
}

TEST(History, refusesWhatCannotComeBack) {
    DeletionStage stage;
    stage.tree.fileWithText("home/gone", "text");
    stage.tree.fileWithText("home/trashed", "text");
    const ExecutedRun removed = stage.run(stage.home("gone"), Removal::permanent);
    const ExecutedRun trashed = stage.run(stage.home("trashed"), Removal::trash);
    DeletionHistory history(stage.store, stage.removal);
    EXPECT_FALSE(history.restore(removed.entries.front())) << "counts as done";
    EXPECT_EQ(history.restoreIfPossible(removed.entries.front())->description, "It was deleted permanently.");
    EXPECT_FALSE(history.restoreIfPossible(trashed.entries.front()));
    EXPECT_EQ(history.restoreIfPossible(history.entries().front())->description,
              "It has been restored already.");
    EXPECT_EQ(history.restoreIfPossible(trashed.entries.front())->description,
              "It has been restored already.")
        << "whatever the caller remembers";
}

TEST(Journal, aLiveRunIsLeftAlone) {
    DeletionStage stage;
    stage.tree.fileWithText("home/file", "text");
    ExecutedRun run = stage.executor.execute({DeletionStage::request(stage.home("file"), Removal::trash)});
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).entries().empty());
    run.journal.reset();
    EXPECT_EQ(DeletionHistory(stage.store, stage.removal).entries(), run.entries);
}

TEST(Journal, endsWhenItsFoldersAreGoneToo) {
    DeletionStage stage;
    stage.tree.fileWithText("home/a/b/file", "text");
    const ExecutedRun run =
        stage.executor.execute({DeletionStage::request(stage.home("a/b"), Removal::permanent),
                                DeletionStage::request(stage.home("a"), Removal::permanent)});
    EXPECT_EQ(run.entries.size(), 2U);
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).record(run));
    for (const std::string& name : valueOf(stage.store.names()))
        EXPECT_FALSE(isJournalName(name)) << name;
}

TEST(Journal, aLineWithAnythingAmissIsPassedOver) {
    const Intent intent{IntentKind::trash, entryNamed("/a"), {"/b", "1-1.1", {"/c"}, "/d"}};
    const Json whole = *readJson(intentText(intent));
    ASSERT_EQ(intentsFromText(intentText(intent)).size(), 1U);
    for (const auto& [key, value] : whole.items()) {
        Json lacking = whole;
        lacking.erase(key);
        EXPECT_TRUE(intentsFromText(writeJson(lacking)).empty()) << key;
        for (const Json& wrong : {Json(1), Json(nullptr), Json::array({1}), Json::object()}) {
            Json damaged = whole;
            damaged[key] = wrong;
            EXPECT_TRUE(intentsFromText(writeJson(damaged)).empty()) << key << ' ' << wrong.dump();
        }
    }
    Json unknown = whole;
    unknown["kind"] = "explode";
    EXPECT_TRUE(intentsFromText(writeJson(unknown)).empty());
}

TEST(Journal, linesThatWereCutOffOrForgedAreNeverActedOn) {
    DeletionStage stage;
    stage.tree.fileWithText("home/precious", "text");
    Intent forged{
        IntentKind::remove, entryNamed(stage.home("precious")), {{}, "1-1.1", {stage.home("precious")}, {}}};
    const std::string whole = intentText(forged);
    Intent returned = forged;
    returned.entry.id = Uuid::random();
    returned.move = {{}, {}, {}, stage.home("precious")};
    const std::string text = whole.substr(0, whole.size() / 2) + "\n{}\n[]\n{\"entry\":1,\"scratch\":[1]}\n" +
                             whole + intentText(returned);
    EXPECT_EQ(intentsFromText(text).size(), 2U);
    std::ofstream(stage.store.folder() + "/run-forged.journal") << text;
    EXPECT_TRUE(DeletionHistory(stage.store, stage.removal).entries().empty());
    EXPECT_TRUE(stage.tree.exists("home/precious"));
}

PlanItem item(const std::string& path, Risk risk = Risk::safe, Removal removal = Removal::trash) {
    return {path, path, 10, removal, {risk, "why"}};
}

TEST(Planning, onlyTheOutermostOfNestedItemsStays) {
    EXPECT_FALSE(planOf({}, "Nothing"));
    const auto plan =
        planOf({item("/a/Cache/x/y"), item("/a/Cache"), item("/a/Cache2"), item("/a/Cache/x")}, "T");
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->title, "T");
    EXPECT_EQ(plan->items, (std::vector<PlanItem>{item("/a/Cache"), item("/a/Cache2")}));
}

TEST(Planning, onlyWhatWasAcceptedBecomesARequest) {
    DeletionPlan plan;
    plan.items = {item("/safe", Risk::safe, Removal::permanent), item("/review", Risk::review),
                  item("/protected", Risk::protected_)};
    const auto requested = [&](ReviewItems review, RemovalPreference preference) {
        std::string text;
        for (const DeletionRequest& request : requestsOf(plan, review, preference))
            text += request.path + (request.removal == Removal::trash ? " trash " : " permanent ");
        return text;
    };
    EXPECT_EQ(requested(ReviewItems::leaveOut, RemovalPreference::asPlanned), "/safe permanent ");
    EXPECT_EQ(requested(ReviewItems::include, RemovalPreference::asPlanned),
              "/safe permanent /review trash ");
    EXPECT_EQ(requested(ReviewItems::include, RemovalPreference::permanent),
              "/safe permanent /review permanent ");
}

TEST(Planning, theNoticeSaysWhatHappened) {
    const auto notice = [](std::int64_t freed, std::int64_t trashed, int deleted, int refused) {
        DeletionReport report;
        report.freed = freed;
        report.movedToTrash = trashed;
        report.deletedPaths.resize(static_cast<std::size_t>(deleted));
        report.failures.resize(static_cast<std::size_t>(refused / 2));
        report.skippedProtected.resize(static_cast<std::size_t>(refused - refused / 2));
        const DeletionNotice said = noticeOf(report);
        return said.message + "|" + said.detail;
    };
    EXPECT_EQ(notice(0, 0, 0, 0), "Nothing was deleted|");
    EXPECT_EQ(notice(0, 0, 0, 3), "Nothing was deleted|3 item(s) couldn't be deleted. Details in History.");
    EXPECT_EQ(notice(2000, 3000, 2, 0), "2 KB freed · 3 KB in the Trash|");
    EXPECT_EQ(notice(2000, 0, 1, 0), "2 KB freed|");
    EXPECT_EQ(notice(-5, 0, 1, 0), "Zero KB freed|");
    EXPECT_EQ(notice(0, 3000, 1, 1),
              "3 KB moved to the Trash|1 item(s) couldn't be deleted. Details in History.");
    EXPECT_EQ(restoreNotice(2).message, "2 item(s) restored");
    HistoryEntry undoable = entryNamed("/a");
    undoable.trashPath = "/t";
    EXPECT_EQ(undoableOf({entryNamed("/b"), undoable}), std::vector<HistoryEntry>{undoable});
}

TEST(Reason, isASentenceForEachKindOfError) {
    const std::string noPermission =
        "No permission. It may need Full Disk Access, or it belongs to another user.";
    const auto reason = [](const PlatformError& error) {
        return DeletionExecutor::reason(error, macosTables().safety);
    };
    EXPECT_EQ(reason({ErrorDomain::cocoa, 513, 1, "x"}), noPermission);
    EXPECT_EQ(reason({ErrorDomain::cocoa, 257, {}, "x"}), noPermission);
    EXPECT_EQ(reason({ErrorDomain::cocoa, 4, {}, "x"}), "No longer exists.");
    EXPECT_EQ(reason({ErrorDomain::cocoa, 512, 1, "x"}), "Protected by macOS or in use.");
    EXPECT_EQ(reason({ErrorDomain::cocoa, 512, 13, "x"}), "Protected by macOS or in use.");
    EXPECT_EQ(reason({ErrorDomain::posix, 4, {}, "x"}), "x");
    EXPECT_EQ(reason({ErrorDomain::posix, 513, 2, "x"}), "x");
    EXPECT_EQ(reason(errorFromErrno(EACCES)), noPermission);
    EXPECT_EQ(reason(errorFromErrno(EPERM)), "Protected by macOS or in use.");
    EXPECT_EQ(reason(errorFromErrno(EBUSY)), "Protected by macOS or in use.");
    EXPECT_EQ(reason(errorFromErrno(EROFS)), "Read-only file system");
}

TEST(Executor, judgesAfreshAndGoesOnAfterEveryRefusal) {
    DeletionStage stage;
    stage.tree.fileWithText("home/app", "text");
    stage.tree.fileWithText("home/kept", "text");
    stage.tree.fileWithText("home/gone", "text");
    stage.verdicts[stage.home("app")] = {Risk::protected_, "The app is open."};
    stage.verdicts[stage.home("kept")] = {Risk::review, "Accepted before."};
    const ExecutedRun run = stage.executor.execute({
        DeletionStage::request(stage.home("app"), Removal::permanent, 1),
        DeletionStage::request(stage.home("missing"), Removal::trash, 2),
        DeletionStage::request(stage.home("kept"), Removal::trash, 4),
        DeletionStage::request(stage.home("gone"), Removal::permanent, 8),
    });
    EXPECT_EQ(run.report.movedToTrash, 4);
    EXPECT_EQ(run.report.freed, 8);
    EXPECT_EQ(run.report.deletedPaths, (std::vector<std::string>{stage.home("kept"), stage.home("gone")}));
    EXPECT_EQ(pathsOf(run.entries), run.report.deletedPaths);
    ASSERT_EQ(run.report.skippedProtected.size(), 1U);
    EXPECT_EQ(run.report.skippedProtected.front().reason, "The app is open.");
    ASSERT_EQ(run.report.failures.size(), 1U);
    EXPECT_EQ(run.report.failures.front().reason, "No longer exists.");
    EXPECT_TRUE(stage.tree.exists("home/app"));
    EXPECT_FALSE(run.entries.back().trashPath);
}

TEST(Executor, judgesAgainWhenACopyIsComplete) {
    DeletionStage stage;
    stage.tree.fileWithText("home/disk/app/file", "text");
    stage.calls.separate(stage.home("disk"));
    DeletionExecutor executor(
        macosTables().safety, stage.removal, stage.store,
        [&](std::string_view) {
            const bool isOpen = stage.hasScratch(); // the user starts it while it is copied
            return isOpen ? SafetyVerdict{Risk::protected_, "The app is open."}
                          : SafetyVerdict{Risk::safe, "It is closed."};
        },
        [] { return ProtectedPlaces({}, LinuxEntryLookup()); });
    const ExecutedRun run =
        executor.execute({DeletionStage::request(stage.home("disk/app"), Removal::trash)});
    ASSERT_EQ(run.report.skippedProtected.size(), 1U);
    EXPECT_EQ(run.report.skippedProtected.front().reason, "The app is open.");
    EXPECT_TRUE(run.report.failures.empty());
    EXPECT_TRUE(run.entries.empty());
    EXPECT_TRUE(stage.tree.exists("home/disk/app/file"));
    EXPECT_TRUE(stage.trashNames().empty());
    EXPECT_FALSE(stage.hasScratch());
}

} // namespace
} // namespace brimlet::test
