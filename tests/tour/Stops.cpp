// Where the tour stops. A new screen, or a new state of one, is a few lines here.
#include "app/AppSection.h"
#include "tour/Tour.h"

#include <QQuickWindow>
#include <QTest>

namespace brimlet::test {

namespace {

Stop section(AppSection section) {
    const std::string raw(look(section).rawValue);
    return {QString::fromStdString(raw), [section](BrimletApp& app) { app.state().setSection(section); }};
}

/// The whole machine takes long enough to be watched.
void watchScan(BrimletApp& app) {
    app.state().scanWithoutAccess();
    app.state().startScan(ScanTarget::wholeDisk());
    waitUntil([&] { return app.state().progress().files > 0; });
}

void scanHome(BrimletApp& app) {
    app.state().startScan(ScanTarget::home());
    waitUntil([&] { return !app.state().isScanning(); });
}

void showToast(BrimletApp& app) {
    Toast toast;
    toast.message = "Freed 1.2 GB";
    toast.detail = "3 items were moved to the Trash.";
    toast.undoable = {HistoryEntry{}};
    app.state().setSection(AppSection::overview);
    app.state().setToast(std::move(toast));
}

void openMenu(BrimletApp& app) {
    app.state().setToast(std::nullopt);
    QTest::keyClick(app.window().window(), Qt::Key_F10);
}

} // namespace

std::vector<Stop> stops() {
    std::vector<Stop> list = {
        {"before-a-scan", [](BrimletApp& app) { app.state().setSection(AppSection::overview); }},
        {"access-sheet", [](BrimletApp& app) { app.state().startScan(ScanTarget::home()); }},
        {"scanning", watchScan},
        {"scanned", scanHome},
    };
    for (const AppSectionLook& row : allSections())
        list.push_back(section(row.section));
    list.push_back({"notice", showToast});
    list.push_back({"menu", openMenu});
    return list;
}

} // namespace brimlet::test
