// How evenly the window goes on while a large folder is walked behind it: from one beat of the main thread to
// the next, waiting for a core included, beside the time that the walk takes. The real window, drawn by the
// software renderer, with walking threads of several priorities in turn; all but "as built" need root.
// Run as: window-beat-bench FOLDER [RUNS]
#include "app/state/JunkState.h"
#include "app/state/ScanState.h"
#include "core/walk/MeasureTree.h"
#include "support/BeatRecorder.h"
#include "support/TestWindow.h"
#include "support/Timing.h"

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <sched.h>
#include <string>
#include <sys/resource.h>

using namespace brimlet;

namespace {

constexpr double lateLimit = 16;  ///< milliseconds at the 95th percentile
constexpr double worstLimit = 50; ///< milliseconds

struct Priority {
    const char* name;
    bool asBuilt;
    int policy;
    int nice;
};

constexpr Priority priorities[] = {
    {"as built", true, 0, 0},
    {"as the window", false, SCHED_OTHER, 0},
    {"nice 10", false, SCHED_OTHER, 10},
    {"nice 19", false, SCHED_OTHER, 19},
    {"batch, nice 19", false, SCHED_BATCH, 19},
    {"idle", false, SCHED_IDLE, 0},
};

/// Threads that the calling one starts inherit it.
void take(const Priority& priority) {
    const sched_param none{};
    if (priority.asBuilt)
        return;
    if (sched_setscheduler(0, priority.policy, &none) != 0 ||
        setpriority(PRIO_PROCESS, 0, priority.nice) != 0)
        std::fputs("The priority can't be set; run as root.\n", stderr);
}

/// Sleeps until there is an event, as an idle window does; the beats wake it.
void waitUntil(const std::function<bool()>& condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

struct Measured {
    double seconds = 0;
    double median = 0;
    double late = 0;
    double worst = 0;
};

Measured measure(const std::function<void()>& begin, const std::function<bool()>& isDone) {
    test::BeatRecorder beats;
    Measured measured;
    beats.start();
    measured.seconds = test::milliseconds([&] {
                           begin();
                           waitUntil(isDone);
                       }) /
                       1'000;
    beats.stop();
    measured.median = beats.percentile(50);
    measured.late = beats.percentile(95);
    measured.worst = beats.percentile(100);
    return measured;
}

/// The run in the middle by its 95th percentile, with the worst beat of all.
Measured middle(std::vector<Measured> runs) {
    std::ranges::sort(runs, {}, &Measured::late);
    Measured chosen = runs[runs.size() / 2];
    for (const Measured& run : runs)
        chosen.worst = std::max(chosen.worst, run.worst);
    return chosen;
}

void report(const char* work, const char* priority, const Measured& measured, double usual) {
    std::printf("| %s | %s | %.2f | %.2f | %.1f | %.1f | %.1f |%s\n", work, priority, measured.seconds,
                measured.seconds / usual, measured.median, measured.late, measured.worst,
                measured.late <= lateLimit && measured.worst <= worstLimit ? "" : " over the limit");
    std::fflush(stdout);
}

class Bench {
public:
    Bench(std::string folder, int runs)
        : m_folder(std::move(folder))
        , m_runs(runs) {}

    int run() {
        test::TestApp app;
        app.preferences.values["initialSection"] = std::string("overview");
        app.scanWalk = [this](Scanner& scanner, const auto& path, const auto& excluded,
                              const auto& progress) {
            take(*m_priority);
            return scanner.scan(path, excluded, progress);
        };
        app.junkSearch = [this] {
            take(*m_priority);
            measureTree(m_folder);
            return std::vector<JunkFinding>();
        };
        test::TestWindow window(app);
        AppState& state = window.state();
        const auto scan = [&] {
            return measure([&] { state.scan()->startScan(ScanTarget::folder(m_folder)); },
                           [&] { return !state.scan()->isScanning(); });
        };
        const auto search = [&] {
            return measure([&] { state.junk()->load(); }, [&] { return !state.junk()->isLoading(); });
        };
        scan(); // fills the caches
        std::puts("| work | priority | s | ratio | beat, median ms | 95th | worst |\n"
                  "|---|---|--:|--:|--:|--:|--:|");
        report("none", "", middle(repeated([&] { return measureNothing(); })), 2);
        return reportEach("scan", scan) + reportEach("measure", search) == 0 ? 0 : 1;
    }

private:
    using Run = std::function<Measured()>;

    static Measured measureNothing() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(2);
        return measure([] {}, [&] { return std::chrono::steady_clock::now() >= end; });
    }

    std::vector<Measured> repeated(const Run& run) const {
        std::vector<Measured> runs;
        runs.reserve(static_cast<std::size_t>(m_runs));
        for (int i = 0; i < m_runs; ++i)
            runs.push_back(run());
        return runs;
    }

    /// The priorities take turns, so that a machine that grows slower does so for all of them. Returns how
    /// many limits the one as built exceeds.
    int reportEach(const char* work, const Run& run) {
        std::vector<std::vector<Measured>> runs(std::size(priorities));
        for (int i = 0; i < m_runs; ++i) {
            for (std::size_t p = 0; p < runs.size(); ++p) {
                m_priority = &priorities[p];
                runs[p].push_back(run());
            }
        }
        const double usual = middle(runs[1]).seconds;
        for (std::size_t p = 0; p < runs.size(); ++p)
            report(work, priorities[p].name, middle(runs[p]), usual);
        const Measured built = middle(runs[0]);
        return (built.late > lateLimit ? 1 : 0) + (built.worst > worstLimit ? 1 : 0);
    }

    std::string m_folder;
    int m_runs;
    const Priority* m_priority = priorities;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("Usage: window-beat-bench FOLDER [RUNS]\n", stderr);
        return 2;
    }
    const QTemporaryDir runtimeFolder;
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
    test::prepareWindowTests();
    const QApplication application(argc, argv);
    test::prepareWindow();
    return Bench(argv[1], argc > 2 ? std::max(1, std::atoi(argv[2])) : 3).run();
}
