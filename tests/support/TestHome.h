// A home folder on the disk under the real window: real search, real policy, real removal, and a guard that
// ends the program if anything outside the folder would be changed. Time and applications are the test's to
// say.
#pragma once

#include "app/state/JunkState.h"
#include "app/state/NoticeState.h"
#include "app/state/QuickCleanState.h"
#include "core/ByteFormat.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "safety/DeletionExecutor.h"
#include "support/FakeAccessProbe.h"
#include "support/GuardedCalls.h"
#include "support/TestWindow.h"
#include "support/TreeSnapshot.h"
#include "tables/SystemTables.h"

#include <ctime>
#include <map>
#include <memory>
#include <string>

namespace brimlet::test {

class TestHome {
public:
    /// `shared` is the disk of another home, as after a restart.
    explicit TestHome(std::shared_ptr<TemporaryTree> shared = std::make_shared<TemporaryTree>())
        : app(std::move(shared)) {
        app.homeFolder = disk.root();
        app.junkSearch = [this] { return m_finder.scan(macosTables().junk.rules); };
        app.deletionRun = [this](const auto& requests, const auto& stop) {
            return m_executor.execute(requests, stop);
        };
    }

    /// Caches, logs, a Trash, an old installer, and what must stay.
    void fill() const {
        for (const char* file :
             {"Library/Caches/com.example.maps/tile", "Library/Caches/com.example.editor/a/b",
              "Library/Logs/app.log", ".Trash/thrown away"})
            disk.file(file, 20'000);
        for (const char* file : {"Documents/letter.txt", "Downloads/picture.jpg",
                                 "Library/Caches/com.apple.bird/keep", "Library/Preferences/app.plist"})
            disk.file(file, 9'000);
        oldInstaller("Downloads/Old.dmg");
    }

    void oldInstaller(const char* path) const {
        disk.file(path, 50'000);
        const auto monthAgo = static_cast<double>(std::time(nullptr) - 30 * 86'400);
        disk.setTimes(path, monthAgo, monthAgo);
    }

    /// All of the home but the application's own history.
    std::map<std::string, std::string> snapshot() const {
        auto entries = snapshotOf(disk.root());
        std::erase_if(entries, [](const auto& entry) { return entry.first.starts_with("/history"); });
        return entries;
    }

    /// Shows the window on first use.
    TestWindow& window() {
        if (!m_window)
            m_window = std::make_unique<TestWindow>(app);
        return *m_window;
    }
    WindowDriver& driver() { return window().driver(); }
    AppState& state() { return app.state(); }

    /// From the first screen to the review.
    bool scan() { return driver().click("Scan", QAccessible::Button) && reachReview(); }
    bool reachReview() {
        app.clock.advance(std::chrono::seconds(2));
        return driver().await("ready to clean") != nullptr;
    }

    /// Presses "Clean" and waits for the report.
    bool clean() { return driver().click(cleanButton(), QAccessible::Button) && reachReport(); }
    bool reachReport() {
        return eventually([&] { return state().notice()->toast().has_value(); }) &&
               (app.clock.advance(std::chrono::seconds(2)), true) && eventually([&] {
                   return state().quickClean()->smartPhase() == SmartPhase::done &&
                          !state().junk()->isLoading();
               });
    }
    QString cleanButton() {
        return QStringLiteral("Clean ") +
               QString::fromStdString(formatBytes(state().quickClean()->smartSelectedSize()));
    }

    TestApp app;
    const TemporaryTree& disk = app.disk;
    GuardedCalls guarded{disk.root()};

private:
    LinuxFileRemoval m_removal{disk.root(), guarded};
    LinuxDirectoryLister m_lister;
    FakeAccessProbe m_access;
    SafetyPolicy m_policy{disk.root(), macosTables().safety, macosTables().junk.rules, app.bundles,
                          app.running};
    JunkFinder m_finder{disk.root(), macosTables().junk, m_lister, m_access};
    LinuxEntryLookup m_entries;
    DeletionExecutor m_executor{
        macosTables().safety, m_removal, app.records,
        [this](std::string_view path) { return m_policy.verdict(path); },
        placesOfUser(disk.root(), macosTables().safety, m_policy, m_entries, m_lister)};
    std::unique_ptr<TestWindow> m_window;
};

} // namespace brimlet::test
