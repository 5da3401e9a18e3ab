// The stops at the screens of files and folders.
#include "app/state/AppSection.h"
#include "app/state/NavigationState.h"
#include "app/state/ScanState.h"
#include "support/TestApp.h"
#include "support/WindowDriver.h"
#include "tour/Tour.h"

#include <cmath>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>

namespace brimlet::test {

namespace {

using Act = std::function<void(BrimletApp&)>;

QQuickWindow& windowOf(BrimletApp& app) {
    return *app.window().window();
}

Act press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    return [=](BrimletApp& app) { QTest::keyClick(&windowOf(app), key, modifiers); };
}

Act click(const QString& name, QAccessible::Role role = QAccessible::NoRole) {
    return [=](BrimletApp& app) { WindowDriver(windowOf(app)).click(name, role); };
}

/// Points at a place of the map, told from its centre in rings and in turns from twelve o'clock.
Act pointAtMap(double rings, double turn) {
    return [=](BrimletApp& app) {
        const QQuickItem* map = WindowDriver(windowOf(app)).find(QStringLiteral("Map of sam"));
        if (map == nullptr)
            return;
        const double distance = rings * map->property("ringWidth").toDouble();
        const QPointF place(map->width() / 2 + distance * std::sin(turn * 2 * M_PI),
                            map->height() / 2 - distance * std::cos(turn * 2 * M_PI));
        QTest::mouseMove(&windowOf(app), map->mapToScene(place).toPoint());
    };
}

void addFileLists(std::vector<Stop>& list) {
    list.push_back({"large-selection", [](BrimletApp& app) {
                        app.state().navigation()->setSection(AppSection::large);
                        handleEvents();
                        WindowDriver driver(windowOf(app));
                        driver.click(QStringLiteral("Video"));
                        driver.click(QStringLiteral("Archives"));
                        QQuickItem* row = driver.find(QStringLiteral("Holiday 2023.mov, 335.5 MB"));
                        if (row != nullptr)
                            driver.click(accessibleName(row));
                        press(Qt::Key_Down, Qt::ShiftModifier)(app);
                        press(Qt::Key_Down, Qt::ShiftModifier)(app);
                    }});
    list.push_back({"large-preview", press(Qt::Key_Space)});
    list.push_back({"large-menu", [](BrimletApp& app) {
                        press(Qt::Key_Space)(app);
                        QTest::qWait(200);
                        press(Qt::Key_Menu)(app);
                    }});
    list.push_back({"large-nothing-found", [](BrimletApp& app) {
                        press(Qt::Key_Escape)(app);
                        FileFilter filter;
                        filter.query = "no such file";
                        filter.pathPrefix = app.state().homeFolder() + "/Downloads/";
                        app.state().navigation()->setLargeFilter(filter);
                    }});
}

void addExplorer(std::vector<Stop>& list) {
    list.push_back({"explorer-map", [](BrimletApp& app) {
                        app.state().navigation()->setLargeFilter({});
                        app.state().navigation()->setSection(AppSection::explorer);
                        handleEvents();
                        click(QStringLiteral("Map"))(app);
                    }});
    list.push_back({"explorer-map-hovered", pointAtMap(2.5, 0.1)});
    list.push_back(
        {"explorer-folder", [](BrimletApp& app) {
             click(QStringLiteral("List"))(app);
             FileNode* downloads =
                 app.state().scan()->scan()->nodeAtPath(app.state().homeFolder() + "/Downloads");
             app.state().navigation()->setExplorerStack({app.state().scan()->scan()->root, downloads});
         }});
}

} // namespace

std::vector<Stop> fileStops() {
    std::vector<Stop> list;
    addFileLists(list);
    addExplorer(list);
    return list;
}

} // namespace brimlet::test
