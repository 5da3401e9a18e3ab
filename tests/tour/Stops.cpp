// Where the tour stops. A new screen, or a new state of one, is a few lines here.
#include "app/AppSection.h"
#include "tour/Tour.h"

namespace brimlet::test {

namespace {

Stop section(AppSection section) {
    const std::string raw(look(section).rawValue);
    return {QString::fromStdString(raw), [section](BrimletApp& app) { app.state().setSection(section); }};
}

void scanHome(BrimletApp& app) {
    app.state().closeAccessOnboarding();
    app.state().scanWithoutAccess();
    waitUntil([&] { return !app.state().isScanning(); });
}

} // namespace

std::vector<Stop> stops() {
    std::vector<Stop> list = {
        {"before-a-scan", [](BrimletApp& app) { app.state().setSection(AppSection::overview); }},
        {"access-sheet", [](BrimletApp& app) { app.state().startScan(ScanTarget::home()); }},
    };
    list.push_back({"overview-first", [](BrimletApp& app) { scanHome(app); }});
    for (const AppSectionLook& row : allSections())
        list.push_back(section(row.section));
    return list;
}

} // namespace brimlet::test
