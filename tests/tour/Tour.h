// Walks through the running application and keeps a picture of each stop. Main thread.
#pragma once

#include "shell/BrimletApp.h"

#include <functional>
#include <QDir>
#include <QString>
#include <vector>

namespace brimlet::test {

/// One picture: what to do before it is taken. `act` leaves the application as the next stop wants it.
struct Stop {
    QString name;
    std::function<void(BrimletApp&)> act;
};

/// All stops, in the order of the walk. Those before `scanned` see no scan.
std::vector<Stop> stops();

/// Those at the screens of files and folders.
std::vector<Stop> fileStops();

class Tour {
public:
    /// Pictures go to `folder`, as "<number>-<name>-<theme>.png".
    Tour(BrimletApp& app, QDir folder)
        : m_app(app)
        , m_folder(std::move(folder)) {}

    /// Takes each stop in light and dark. Returns how many pictures could not be taken.
    int walk();

private:
    bool keepPicture(const QString& name);

    BrimletApp& m_app;
    QDir m_folder;
};

/// Waits until a condition holds, while events go on. False after 30 seconds.
bool waitUntil(const std::function<bool()>& condition);

} // namespace brimlet::test
