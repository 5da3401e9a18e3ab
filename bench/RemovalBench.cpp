// Removal beside `rm -rf`, alternating, each through the whole engine with its journal and its history; and
// moves to the Trash on the same device. Usage: removal-bench FOLDER [ROUNDS] [ROW]; FOLDER is made and
// removed, ROW is a part of the name of those to run. Beside the time stands the processor's, which a busy
// machine changes less.

#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/removal/LinuxFileRemoval.h"
#include "platform/linux/removal/LinuxRecordStore.h"
#include "safety/DeletionExecutor.h"
#include "safety/history/DeletionHistory.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace brimlet {
namespace {

using Paths = std::vector<std::string>;

void makeFile(const std::string& path) {
    close(open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
}

/// `folders` folders, fifty to a group, with `files` empty files each.
void makeTree(const std::string& top, int folders, int files) {
    for (int folder = 0; folder < folders; ++folder) {
        const std::string path = top + "/" + std::to_string(folder / 50) + "/" + std::to_string(folder);
        std::filesystem::create_directories(path);
        for (int file = 0; file < files; ++file)
            makeFile(path + "/file" + std::to_string(file));
    }
}

struct Seconds {
    double elapsed = 0;
    double processor = 0; ///< of this process and of those that it has started
};

double processorSeconds() {
    double seconds = 0;
    for (const int who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage used{};
        getrusage(who, &used);
        for (const timeval& time : {used.ru_utime, used.ru_stime})
            seconds += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    }
    return seconds;
}

Seconds secondsOf(const std::function<void()>& work) {
    const double used = processorSeconds();
    const auto start = std::chrono::steady_clock::now();
    work();
    const double elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    return {elapsed, processorSeconds() - used};
}

void runRm(const Paths& paths) {
    Paths words = {"/bin/rm", "-rf"};
    words.insert(words.end(), paths.begin(), paths.end());
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0)
        waitpid(process, nullptr, 0);
}

double median(const std::vector<Seconds>& runs, double Seconds::*which) {
    std::vector<double> values;
    values.reserve(runs.size());
    for (const Seconds& run : runs)
        values.push_back(run.*which);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// A home folder with the engine on top of it.
class Engine {
public:
    explicit Engine(const std::string& home)
        : m_removal(home, m_calls)
        , m_store(historyFolder(home, macosTables().safety), m_calls)
        , m_executor(
              macosTables().safety, m_removal, m_store,
              [](std::string_view) {
                  return SafetyVerdict{Risk::safe, "safe"};
              },
              [] { return ProtectedPlaces({}, LinuxEntryLookup()); })
        , m_history(m_store, m_removal) {}

    void run(const Paths& paths, Removal how) {
        std::vector<DeletionRequest> requests;
        for (const std::string& path : paths)
            requests.push_back({Uuid::random(), path, 0, how});
        LinuxEntryLookup().findEach(paths, [&](std::size_t index, const std::optional<FoundEntry>& found) {
            if (found)
                requests[index].identity = found->identity;
        });
        const ExecutedRun run = m_executor.execute(requests);
        m_history.record(run);
        if (run.report.deletedPaths.size() != paths.size())
            std::printf("%zu of %zu removed\n", run.report.deletedPaths.size(), paths.size());
    }

private:
    FileSystemCalls m_calls;
    LinuxFileRemoval m_removal;
    LinuxRecordStore m_store;
    DeletionExecutor m_executor;
    DeletionHistory m_history;
};

struct Row {
    const char* what;
    std::function<Paths(const std::string& folder)> make; ///< gives what is to be removed
};

/// `count` entries given separately; folders of `files` files, or files where that is 0.
Paths makeItems(const std::string& folder, int count, int files) {
    Paths paths;
    for (int item = 0; item < count; ++item) {
        paths.push_back(folder + "/item" + std::to_string(item));
        if (files == 0)
            makeFile(paths.back());
        else
            std::filesystem::create_directory(paths.back());
        for (int file = 0; file < files; ++file)
            makeFile(paths.back() + "/file" + std::to_string(file));
    }
    return paths;
}

Paths makeEqualNames(const std::string& folder, int count) {
    Paths paths;
    for (int item = 0; item < count; ++item) {
        const std::string parent = folder + "/parent" + std::to_string(item);
        std::filesystem::create_directory(parent);
        paths.push_back(parent + "/same.txt");
        makeFile(paths.back());
    }
    return paths;
}

Row oneTree(const char* what, int folders, int files) {
    return {what, [=](const std::string& folder) {
                makeTree(folder + "/tree", folders, files);
                return Paths{folder + "/tree"};
            }};
}

void benchForGood(const std::string& folder, int rounds, const std::string& only) {
    const Row rows[] = {
        oneTree("one tree of 200,000 files in 2,000 folders", 2000, 100),
        oneTree("one tree of 40,000 folders", 40000, 0),
        oneTree("one tree of 40,000 folders of two files", 40000, 2),
        {"3,000 files given separately", [](const auto& at) { return makeItems(at, 3000, 0); }},
        {"3,000 folders of ten files given separately",
         [](const auto& at) { return makeItems(at, 3000, 10); }},
    };
    Engine engine(folder);
    for (const Row& row : rows) {
        if (std::string(row.what).find(only) == std::string::npos)
            continue;
        std::vector<Seconds> ours;
        std::vector<Seconds> rm;
        for (int round = 0; round < rounds; ++round) {
            const auto measure = [&](std::vector<Seconds>& seconds,
                                     const std::function<void(const Paths&)>& work) {
                const Paths paths = row.make(folder);
                sync();
                seconds.push_back(secondsOf([&] { work(paths); }));
            };
            measure(ours, [&](const Paths& paths) { engine.run(paths, Removal::permanent); });
            measure(rm, runRm);
        }
        std::printf("%-45s", row.what);
        for (const auto which : {&Seconds::elapsed, &Seconds::processor})
            std::printf(" %s%7.3f s, rm -rf %7.3f s, ratio %.2f",
                        which == &Seconds::elapsed ? "" : "| processor ", median(ours, which),
                        median(rm, which), median(ours, which) / median(rm, which));
        std::puts("");
        std::fflush(stdout);
    }
}

void benchTrash(const std::string& folder, const std::string& only) {
    const Row rows[] = {
        oneTree("to the Trash: one tree of 200,000 files", 2000, 100),
        {"to the Trash: 10,000 items", [](const auto& at) { return makeItems(at, 10000, 0); }},
        {"to the Trash: 10,000 items of one name", [](const auto& at) { return makeEqualNames(at, 10000); }},
    };
    Engine engine(folder);
    for (const Row& row : rows) {
        if (std::string(row.what).find(only) == std::string::npos)
            continue;
        const Paths paths = row.make(folder);
        sync();
        const Seconds seconds = secondsOf([&] { engine.run(paths, Removal::trash); });
        std::printf("%-45s %7.3f s | processor %7.3f s\n", row.what, seconds.elapsed, seconds.processor);
        std::fflush(stdout);
    }
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    constexpr int usualRounds = 5;
    if (argc < 2) {
        std::fprintf(stderr, "usage: removal-bench FOLDER [ROUNDS] [ROW]\n");
        return 2;
    }
    const std::string folder = argv[1];
    std::filesystem::create_directories(folder);
    const std::string only = argc > 3 ? argv[3] : "";
    brimlet::benchForGood(folder, argc > 2 ? std::max(1, std::atoi(argv[2])) : usualRounds, only);
    brimlet::benchTrash(folder, only);
    std::filesystem::remove_all(folder);
    return 0;
}
