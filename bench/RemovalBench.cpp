// Permanent removal against `rm -rf`, alternating, on trees of 200,000 files; and a move to the Trash of a
// small and of the large tree. Usage: removal-bench FOLDER [ROUNDS]; FOLDER is made and removed.

#include "platform/linux/LinuxFileRemoval.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace brimlet {
namespace {

void makeTree(const std::string& top, int folders) {
    constexpr int filesPerFolder = 100;
    for (int folder = 0; folder < folders; ++folder) {
        const std::string path = top + "/" + std::to_string(folder / 50) + "/" + std::to_string(folder);
        std::filesystem::create_directories(path);
        for (int file = 0; file < filesPerFolder; ++file)
            close(
                open((path + "/file" + std::to_string(file)).c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
    }
    sync();
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void runRm(const std::string& path) {
    std::string words[] = {"/bin/rm", "-rf", path};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    pid_t process = 0;
    if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments, environ) == 0)
        waitpid(process, nullptr, 0);
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int bench(const std::string& folder, int rounds) {
    constexpr int largeFolders = 2000;
    const auto goAhead = [](const PlannedMove&) { return Failure(); };
    FileSystemCalls calls;
    LinuxFileRemoval removal(folder, calls);
    std::vector<double> ours;
    std::vector<double> rm;
    std::filesystem::create_directories(folder);
    const std::string tree = folder + "/tree";
    const auto removeTree = [&] { (void)removal.remove(*valueOf(removal.pin(tree)), goAhead); };
    for (int round = 0; round < rounds; ++round) {
        makeTree(tree, largeFolders);
        ours.push_back(secondsOf(removeTree));
        makeTree(tree, largeFolders);
        rm.push_back(secondsOf([&] { runRm(tree); }));
    }
    std::printf("permanent removal of 200,000 files: %.3f s, rm -rf: %.3f s, ratio %.2f\n", median(ours),
                median(rm), median(ours) / median(rm));
    for (const int folders : {1, largeFolders}) {
        makeTree(tree, folders);
        const double seconds =
            secondsOf([&] { (void)removal.moveToTrash(*valueOf(removal.pin(tree)), goAhead); });
        std::printf("move to the Trash of %d files: %.1f us\n", folders * 100, seconds * 1e6);
    }
    std::filesystem::remove_all(folder);
    return 0;
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    constexpr int usualRounds = 5;
    if (argc < 2) {
        std::fprintf(stderr, "usage: removal-bench FOLDER [ROUNDS]\n");
        return 2;
    }
    return brimlet::bench(argv[1], argc > 2 ? std::max(1, std::atoi(argv[2])) : usualRounds);
}
