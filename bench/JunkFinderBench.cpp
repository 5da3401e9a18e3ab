// The junk finder beside one parallel measurement of the same folders, on home folders of 200,000 cache files
// (or as many as the first argument says), warm cache. Prints medians and their ratio.

#include "core/walk/MeasureTree.h"
#include "junk/JunkFinder.h"
#include "platform/AccessProbe.h"
#include "platform/linux/LinuxDirectoryLister.h"
#include "support/TemporaryTree.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace brimlet {
namespace {

constexpr int runs = 9;

class Granted final : public AccessProbe {
public:
    bool hasFullDiskAccess() const override { return true; }
};

/// Makes `count` files of one block, at most 100 in a folder, in `items` direct children of `base`.
void fill(const test::TemporaryTree& home, const std::string& base, int count, int items) {
    for (int i = 0; i < count; ++i) {
        std::string path = base + "/item";
        path += std::to_string(i % items);
        path += "/" + std::to_string(i / items / 100);
        path += "/file" + std::to_string(i);
        home.file(path, 1);
    }
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void compare(const char* name, const std::string& home) {
    const LinuxDirectoryLister lister;
    const Granted access;
    const JunkFinder finder(home, macosTables().junk, lister, access);
    std::vector<double> finding;
    std::vector<double> measuring;
    std::int64_t files = 0;
    for (int run = 0; run < runs; ++run) {
        measuring.push_back(secondsOf([&] { measureTree(home); }));
        finding.push_back(secondsOf([&] {
            files = 0;
            for (const JunkFinding& found : finder.scan(macosTables().junk.rules)) {
                for (const JunkItem& item : found.items)
                    files += item.fileCount;
            }
        }));
    }
    std::printf("%-34s %9lld %10.1f ms %10.1f ms %7.2f\n", name, static_cast<long long>(files),
                median(finding) * 1e3, median(measuring) * 1e3, median(finding) / median(measuring));
}

void compareAll(int count) {
    std::printf("%-34s %9s %13s %13s %7s\n", "home folder", "files", "JunkFinder", "measureTree", "ratio");
    {
        const test::TemporaryTree mixed;
        fill(mixed, "Library/Caches", count * 6 / 10, 300);
        fill(mixed, ".npm/_cacache", count * 2 / 10, 3);
        fill(mixed, "Library/Logs", count / 10, 100);
        fill(mixed, "Library/Developer/Xcode/DerivedData", count / 10, 10);
        compare("mixed: 413 items under four rules", mixed.root());
    }
    {
        const test::TemporaryTree one;
        fill(one, ".cache", count, 1);
        compare("one item holds all", one.root());
    }
    {
        const test::TemporaryTree flat;
        for (int i = 0; i < count; ++i)
            flat.file("Library/Caches/file" + std::to_string(i), 1);
        compare("each file is an item", flat.root());
    }
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    brimlet::compareAll(argc > 1 ? std::atoi(argv[1]) : 200'000);
    return 0;
}
