// Where the tour stops. A new screen, or a new state of one, is a few lines here.
#include "app/state/AccessState.h"
#include "app/state/AppSection.h"
#include "app/state/JunkState.h"
#include "app/state/NavigationState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "support/WindowDriver.h"
#include "tour/Tour.h"

#include <QQuickWindow>
#include <QTest>

namespace brimlet::test {

namespace {

Stop section(AppSection section) {
    const std::string raw(look(section).rawValue);
    return {QString::fromStdString(raw),
            [section](BrimletApp& app) { app.state().navigation()->setSection(section); }};
}

/// The whole machine takes long enough to be watched.
void watchScan(BrimletApp& app) {
    app.state().access()->scanWithoutAccess();
    app.state().scan()->startScan(ScanTarget::wholeDisk());
    waitUntil([&] { return app.state().scan()->progress().files > 0; });
}

void scanHome(BrimletApp& app) {
    app.state().scan()->startScan(ScanTarget::home());
    waitUntil([&] { return !app.state().scan()->isScanning(); });
}

void quickScan(BrimletApp& app) {
    app.state().navigation()->setSection(AppSection::smartClean);
    app.state().quickClean()->setSmartPhase(SmartPhase::scanning);
    app.state().quickClean()->startSmartScan();
}

/// Rows of all three risks: caches, installers, and a folder that stays.
void proposeMixedPlan(BrimletApp& app) {
    std::vector<ChosenJunk> chosen;
    for (const JunkFinding& finding : app.state().junk()->findings()) {
        if (finding.rule.id != "user-caches" && finding.rule.id != "old-installers")
            continue;
        for (const JunkItem& item : finding.items)
            chosen.push_back({item, finding.rule.removal});
    }
    const std::string& home = app.state().homeFolder();
    for (const char* folder : {"/Documents", "/.Trash"})
        chosen.push_back({{home + folder, "", 0, 0, {}}, Removal::trash});
    app.state().junk()->proposePlan(std::move(chosen));
    waitUntil([&] { return app.state().removal()->plan() != nullptr; });
}

/// Also leaves one failure behind: a path that is not there any more.
void cleanInstallers(BrimletApp& app) {
    DeletionPlan plan = *app.state().removal()->plan();
    std::erase_if(plan.items, [](const PlanItem& item) { return item.verdict.risk != Risk::review; });
    PlanItem gone = plan.items.front();
    gone.path += ".moved";
    plan.items.push_back(gone);
    app.state().removal()->executePlan(std::make_shared<const DeletionPlan>(std::move(plan)),
                                       ReviewItems::include);
    waitUntil([&] { return app.state().notice()->toast().has_value(); });
}

void restoreNewest(BrimletApp& app) {
    app.state().notice()->setToast(std::nullopt);
    app.state().removal()->restoreEntry(app.state().removal()->history().front());
    app.state().navigation()->setSection(AppSection::history);
}

/// Presses a key in the window as its user would.
void press(BrimletApp& app, Qt::Key key, int times = 1) {
    for (int i = 0; i < times; ++i)
        QTest::keyClick(app.window().window(), key);
}

std::vector<Stop> cleaningStops() {
    return {
        {"quick-clean-idle",
         [](BrimletApp& app) { app.state().navigation()->setSection(AppSection::smartClean); }},
        {"quick-clean-scanning", quickScan},
        {"quick-clean-review",
         [](BrimletApp& app) {
             waitUntil([&] { return app.state().quickClean()->smartPhase() == SmartPhase::review; });
         }},
        {"junk",
         [](BrimletApp& app) {
             app.state().navigation()->setSection(AppSection::junk);
             waitUntil([&] { return !app.state().junk()->isLoading(); });
         }},
        {"junk-opened-and-selected",
         [](BrimletApp& app) {
             WindowDriver(*app.window().window()).tabTo(QStringLiteral("Scan Again"));
             press(app, Qt::Key_Tab);
             press(app, Qt::Key_Space);
             press(app, Qt::Key_Right);
             press(app, Qt::Key_Down, 2);
             press(app, Qt::Key_Space);
         }},
        {"confirmation", proposeMixedPlan},
        {"undo-notice", cleanInstallers},
        {"history-with-failures", restoreNewest},
        {"quick-clean-cleaning",
         [](BrimletApp& app) {
             app.state().navigation()->setSection(AppSection::smartClean);
             app.state().quickClean()->startSmartClean();
         }},
        {"quick-clean-done",
         [](BrimletApp& app) {
             waitUntil([&] { return app.state().quickClean()->smartPhase() == SmartPhase::done; });
         }},
        {"history", [](BrimletApp& app) { app.state().navigation()->setSection(AppSection::history); }},
    };
}

void showToast(BrimletApp& app) {
    Toast toast;
    toast.message = "Freed 1.2 GB";
    toast.detail = "3 items were moved to the Trash.";
    toast.undoable = std::make_shared<const std::vector<HistoryEntry>>(1);
    app.state().navigation()->setSection(AppSection::overview);
    app.state().notice()->setToast(std::move(toast));
}

void openMenu(BrimletApp& app) {
    app.state().notice()->setToast(std::nullopt);
    QTest::keyClick(app.window().window(), Qt::Key_F10);
}

/// The last stops: the way back would be a stop of its own.
std::vector<Stop> mirroredStops() {
    return {
        {"mirrored-junk",
         [](BrimletApp& app) {
             QTest::keyClick(app.window().window(), Qt::Key_Escape);
             QGuiApplication::setLayoutDirection(Qt::RightToLeft);
             app.state().navigation()->setSection(AppSection::junk);
         }},
        {"mirrored-large", [](BrimletApp& app) { app.state().navigation()->setSection(AppSection::large); }},
        {"mirrored-explorer",
         [](BrimletApp& app) { app.state().navigation()->setSection(AppSection::explorer); }},
    };
}

} // namespace

std::vector<Stop> stops() {
    std::vector<Stop> list = {
        {"before-a-scan",
         [](BrimletApp& app) { app.state().navigation()->setSection(AppSection::overview); }},
        {"access-sheet", [](BrimletApp& app) { app.state().scan()->startScan(ScanTarget::home()); }},
        {"scanning", watchScan},
        {"scanned", scanHome},
    };
    for (const AppSectionLook& row : allSections())
        list.push_back(section(row.section));
    for (Stop& stop : fileStops())
        list.push_back(std::move(stop));
    for (Stop& stop : cleaningStops())
        list.push_back(std::move(stop));
    list.push_back({"notice", showToast});
    list.push_back({"menu", openMenu});
    for (Stop& stop : mirroredStops())
        list.push_back(std::move(stop));
    return list;
}

} // namespace brimlet::test
