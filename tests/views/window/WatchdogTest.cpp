// While a large tree is scanned, nothing of our own holds up the main thread for longer than a frame.
#include "app/state/ScanState.h"
#include "support/TemporaryTree.h"
#include "support/TestWindow.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {
namespace {

constexpr double frameMilliseconds = 16;
constexpr int folderCount = 300;
constexpr int filesPerFolder = 1'000;

/// What one event cost the main thread.
struct Cost {
    double wall = 0;      ///< milliseconds
    double processor = 0; ///< milliseconds
    bool waited = false;  ///< gave up the processor by itself, as for a lock or a read
};

class Stopwatch {
public:
    Cost cost() const {
        const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - m_start;
        return {wall.count(), threadMilliseconds() - m_processor, voluntarySwitches() > m_switches};
    }

private:
    static double threadMilliseconds() {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    }

    static long voluntarySwitches() {
        rusage usage{};
        getrusage(RUSAGE_THREAD, &usage);
        return usage.ru_nvcsw;
    }

    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    double m_processor = threadMilliseconds();
    long m_switches = voluntarySwitches();
};

/// Times every event but those that draw.
class TimedApplication final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const bool draws = event->type() == QEvent::UpdateRequest || event->type() == QEvent::Expose;
        if (draws || m_depth > 0)
            return QApplication::notify(receiver, event);
        const QByteArray name = QByteArray(receiver->metaObject()->className()) + " event " +
                                QByteArray::number(static_cast<int>(event->type()));
        ++m_depth;
        const Stopwatch watch;
        const bool handled = QApplication::notify(receiver, event);
        note(watch.cost(), name);
        --m_depth;
        return handled;
    }

    void forget() { m_events = 0, m_longest = {}, m_longestWait = {}, m_busiest = {}; }

    int events() const { return m_events; }
    const Cost& longest() const { return m_longest; }
    const Cost& longestWait() const { return m_longestWait; }
    const Cost& busiest() const { return m_busiest; }
    const QByteArray& busiestName() const { return m_busiestName; }

private:
    void note(const Cost& cost, const QByteArray& name) {
        ++m_events;
        if (cost.wall > m_longest.wall)
            m_longest = cost;
        if (cost.waited && cost.wall > m_longestWait.wall)
            m_longestWait = cost;
        if (cost.processor > m_busiest.processor) {
            m_busiest = cost;
            m_busiestName = name;
        }
    }

    int m_depth = 0;
    int m_events = 0;
    Cost m_longest;
    Cost m_longestWait;
    Cost m_busiest;
    QByteArray m_busiestName;
};

void makeManyFiles(const test::TemporaryTree& tree) {
    for (int folder = 0; folder < folderCount; ++folder) {
        const std::string path = tree.directory("folder" + std::to_string(folder));
        const int descriptor = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        for (int file = 0; file < filesPerFolder; ++file)
            mknodat(descriptor, std::to_string(file).c_str(), S_IFREG | 0600, 0);
        close(descriptor);
    }
}

TEST(Watchdog, scanOfThreeHundredThousandFilesLeavesTheMainThreadFree) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "Sanitizers change what things cost";
#endif
    const test::TemporaryTree tree;
    makeManyFiles(tree);
    test::TestApp app;
    app.preferences.values["initialSection"] = std::string("overview");
    app.scanWalk = [](Scanner& scanner, const auto& path, const auto& excluded, const auto& progress) {
        return scanner.scan(path, excluded, progress);
    };
    test::TestWindow window(app);
    auto& timed = static_cast<TimedApplication&>(*qApp);
    timed.forget();
    QTest::qWait(500);
    const double noise = timed.longest().wall;

    timed.forget();
    QSignalSpy progress(window.state().scan(), &ScanState::progressChanged);
    for (int scan = 1; scan <= 3; ++scan) {
        window.state().scan()->startScan(ScanTarget::folder(tree.root()));
        ASSERT_TRUE(test::eventually([&] { return !window.state().scan()->isScanning(); }));
        ASSERT_EQ(window.state().scan()->revision(), scan);
        QTest::qWait(200);
    }
    EXPECT_EQ(window.state().scan()->scan()->totalFiles, folderCount * filesPerFolder);
    EXPECT_GE(progress.count(), 3);
    EXPECT_GT(timed.events(), 5);
    EXPECT_LE(timed.busiest().processor, frameMilliseconds) << timed.busiestName().toStdString();
    EXPECT_LE(timed.longestWait().wall, frameMilliseconds + noise);
    RecordProperty("busiestMicroseconds", static_cast<int>(timed.busiest().processor * 1'000));
    std::printf(
        "%d events; the busiest took %.2f ms of processor time, the longest %.2f ms (idle: %.2f ms)\n",
        timed.events(), timed.busiest().processor, timed.longest().wall, noise);
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    return brimlet::test::runWindowTests<brimlet::TimedApplication>(argc, argv);
}
