// A move to the Trash from another disk, which copies and syncs every file, against cp -a, sync -f and rm
// -rf. Usage: copy-bench FOLDER OTHER [ROUNDS]; both are made and removed, on the disk of the Trash and on
// another.

#include "platform/linux/LinuxEntryLookup.h"
#include "platform/linux/removal/LinuxFileRemoval.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace brimlet {
namespace {

struct Shape {
    const char* name;
    int folders;
    int filesPerFolder;
    std::size_t bytes; ///< of each file
};

constexpr Shape shapes[] = {{"10,000 files of 2 KiB in 100 folders", 100, 100, 2048},
                            {"2,000 folders with a file of 2 KiB each", 2000, 1, 2048},
                            {"4 files of 128 MiB", 1, 4, std::size_t{128} << 20}};

void makeTree(const std::string& top, const Shape& shape) {
    const std::string content(shape.bytes, 'x');
    for (int folder = 0; folder < shape.folders; ++folder) {
        const std::string path = top + "/" + std::to_string(folder);
        std::filesystem::create_directories(path);
        for (int file = 0; file < shape.filesPerFolder; ++file)
            std::ofstream(path + "/" + std::to_string(file)) << content;
    }
    sync();
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void runCommand(std::vector<std::string> words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0)
        waitpid(process, nullptr, 0);
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int bench(const std::string& folder, const std::string& other, int rounds) {
    FileSystemCalls calls;
    LinuxFileRemoval removal(folder, calls);
    const std::string tree = other + "/tree";
    const std::string copied = folder + "/.Trash/tree";
    for (const Shape& shape : shapes) {
        std::vector<double> ours;
        std::vector<double> plain;
        for (int round = 0; round < rounds; ++round) {
            std::filesystem::create_directories(folder);
            makeTree(tree, shape);
            ours.push_back(secondsOf([&] {
                const PlacedIdentity reviewed = LinuxEntryLookup().find(tree)->identity;
                (void)removal.moveToTrash(*valueOf(removal.pin(tree, reviewed, nullptr)), {},
                                          [](const PlannedMove&) { return Failure(); }, {});
            }));
            const bool isCopied = std::filesystem::exists(copied) && !std::filesystem::exists(tree);
            std::filesystem::remove_all(copied);
            if (!isCopied)
                return std::fprintf(stderr, "The move failed.\n"), 1;
            makeTree(tree, shape);
            plain.push_back(secondsOf([&] {
                runCommand({"cp", "-a", tree, copied});
                runCommand({"sync", "-f", copied});
                runCommand({"rm", "-rf", tree});
            }));
            std::filesystem::remove_all(copied);
        }
        std::printf("%s: %.3f s, cp, sync and rm: %.3f s, ratio %.2f\n", shape.name, median(ours),
                    median(plain), median(ours) / median(plain));
    }
    std::filesystem::remove_all(folder);
    std::filesystem::remove_all(other);
    return 0;
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    constexpr int usualRounds = 3;
    if (argc < 3) {
        std::fprintf(stderr, "usage: copy-bench FOLDER OTHER [ROUNDS]\n");
        return 2;
    }
    return brimlet::bench(argv[1], argv[2], argc > 3 ? std::max(1, std::atoi(argv[3])) : usualRounds);
}
