#include "support/FilledWindow.h"
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "tables/SystemTables.h"

namespace brimlet::test {

namespace {

constexpr std::int64_t megabyte = 1'000'000;

/// The longest sentences that a verdict and a failure are told with have this length.
const std::string longReason = "Belongs to an application that is open right now. Quit it, wait until it has "
                               "written what it still holds, and look at this item again.";
const std::string longName =
    "A name that somebody has given a lot of thought, with the year 2023 and “quotes” in it";

std::shared_ptr<ScanResult> manyFiles() {
    SyntheticTree tree("/Users/sam");
    FileNode* folder = tree.root();
    for (const char* name :
         {"Projects", "A folder with quite a long name of its own", "Deep", "Deeper", "Deepest"}) {
        folder = tree.directory(folder, name);
        for (const char* suffix : {".mov", ".zip", ".pdf", ".dmg", ".m4a", ".jpg"})
            tree.file(folder, longName + suffix, 345 * megabyte);
    }
    for (int i = 0; i < 30; ++i)
        tree.file(tree.root(), "photo " + std::to_string(i) + ".heic", (i + 1) * megabyte);
    return tree.finish();
}

} // namespace

void FilledWindow::fillServices() {
    app.volumes.info = VolumeInfo{"Macintosh HD", 994'662'584'320, 12 * megabyte, 345'678 * megabyte};
    app.junkSearch = [] {
        std::vector<JunkFinding> found;
        for (const JunkRule& rule : macosTables().junk.rules)
            found.push_back(madeUpFinding(rule.id, {{longName, 12 * megabyte}, {"small", megabyte}}));
        return found;
    };
    app.deletionRun = [](const std::vector<DeletionRequest>& requests, const std::stop_token&) {
        ExecutedRun run;
        for (const DeletionRequest& request : requests)
            run.report.failures.push_back({request.id, request.path, longReason});
        run.report.freed = 1'234 * megabyte;
        run.report.movedToTrash = 567 * megabyte;
        return run;
    };
    std::vector<HistoryEntry> entries;
    for (int i = 0; i < 40; ++i) {
        HistoryEntry entry;
        entry.date = 700'000'000;
        entry.originalPath = app.disk.path("Documents/" + std::to_string(i) + " " + longName);
        entry.size = 123'456 * megabyte;
        if (i % 2 == 0)
            entry.trashPath = app.disk.file(".Trash/" + std::to_string(i), 1);
        entries.push_back(entry);
    }
    app.history.append(entries);
}

void FilledWindow::finishScan() {
    const std::size_t walk = app.walks.count();
    state().scan()->startScan(ScanTarget::folder("/Users/sam"));
    app.walks.begun(walk);
    app.walks.finish(walk, manyFiles());
    eventually([&] { return !state().scan()->isScanning(); });
    handleEvents();
}

void FilledWindow::reachReview() {
    state().navigation()->setSection(AppSection::smartClean);
    state().quickClean()->setSmartPhase(SmartPhase::scanning);
    state().quickClean()->startSmartScan();
    eventually([&] {
        app.clock.advance(std::chrono::seconds(2));
        return state().quickClean()->smartPhase() == SmartPhase::review;
    });
    handleEvents();
}

void FilledWindow::reachReport() {
    state().quickClean()->startSmartClean();
    eventually([&] {
        app.clock.advance(std::chrono::seconds(2));
        return state().quickClean()->smartPhase() == SmartPhase::done && !state().junk()->isLoading();
    });
    state().notice()->setToast(std::nullopt);
    handleEvents();
}

void FilledWindow::showMixedPlan() {
    std::vector<PlanItem> items;
    for (const Risk risk : {Risk::safe, Risk::review, Risk::protected_}) {
        for (int i = 0; i < 5; ++i) {
            PlanItem item;
            item.name = longName + std::to_string(i);
            item.path = "/Users/sam/Projects/A folder with quite a long name of its own/Deep/" + item.name;
            item.size = 123'456 * megabyte;
            item.verdict = {risk, longReason};
            items.push_back(item);
        }
    }
    state().removal()->proposePlan(std::move(items), "Delete Items");
    eventually([&] { return state().removal()->plan() != nullptr; });
    handleEvents();
}

void FilledWindow::showNotice() {
    Toast toast;
    toast.message = "1.2 GB moved to Trash, 345.6 GB freed";
    toast.detail = "12 protected item(s) skipped. 34 item(s) couldn't be deleted. Details in History.";
    toast.undoable = std::make_shared<const std::vector<HistoryEntry>>(1);
    state().notice()->setToast(std::move(toast));
    handleEvents();
}

} // namespace brimlet::test
