// The junk finder beside one parallel measurement of the same folders, on home folders of 200,000 cache files
// (or as many as the first argument says), warm cache. Prints medians and their ratio.

#include "core/MeasureTree.h"
#include "junk/JunkCatalogue.h"
#include "junk/JunkFinder.h"
#include "platform/AccessProbe.h"
#include "platform/linux/LinuxDirectoryLister.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace brimlet {
namespace {

namespace fs = std::filesystem;

constexpr int runs = 9;

class Granted final : public AccessProbe {
public:
    bool hasFullDiskAccess() const override { return true; }
};

/// A home folder in the temporary folder, gone with the object.
class SampleHome {
public:
    SampleHome() {
        std::string pattern = fs::temp_directory_path() / "brimlet-bench-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr)
            std::abort();
        m_path = pattern;
    }
    ~SampleHome() { fs::remove_all(m_path); }
    SampleHome(const SampleHome&) = delete;
    SampleHome& operator=(const SampleHome&) = delete;

    const std::string& path() const { return m_path; }

    /// Makes `count` files of one block, at most 100 in a folder, in `folders` direct children of a base.
    void fill(const std::string& base, int count, int folders) const {
        for (int i = 0; i < count; ++i) {
            const int item = i % folders;
            const int inner = i / folders / 100;
            const fs::path folder =
                fs::path(m_path) / base / ("item" + std::to_string(item)) / std::to_string(inner);
            if (i / folders % 100 == 0)
                fs::create_directories(folder);
            std::ofstream(folder / ("file" + std::to_string(i))) << 'x';
        }
    }

    void fillFlat(const std::string& base, int count) const {
        fs::create_directories(fs::path(m_path) / base);
        for (int i = 0; i < count; ++i)
            std::ofstream(fs::path(m_path) / base / ("file" + std::to_string(i))) << 'x';
    }

private:
    std::string m_path;
};

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void compare(const char* name, const SampleHome& home) {
    const LinuxDirectoryLister lister;
    const Granted access;
    const JunkFinder finder(home.path(), lister, access);
    std::vector<double> finding;
    std::vector<double> measuring;
    std::int64_t files = 0;
    for (int run = 0; run < runs; ++run) {
        measuring.push_back(secondsOf([&] { measureTree(home.path()); }));
        finding.push_back(secondsOf([&] {
            files = 0;
            for (const JunkFinding& found : finder.scan(junkCatalogue())) {
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
        const SampleHome mixed;
        mixed.fill("Library/Caches", count * 6 / 10, 300);
        mixed.fill(".npm/_cacache", count * 2 / 10, 3);
        mixed.fill("Library/Logs", count / 10, 100);
        mixed.fill("Library/Developer/Xcode/DerivedData", count / 10, 10);
        compare("mixed: 413 items under four rules", mixed);
    }
    {
        const SampleHome one;
        one.fill(".cache", count, 1);
        compare("one item holds all", one);
    }
    {
        const SampleHome flat;
        flat.fillFlat("Library/Caches", count);
        compare("each file is an item", flat);
    }
}

} // namespace
} // namespace brimlet

int main(int argc, char** argv) {
    brimlet::compareAll(argc > 1 ? std::atoi(argv[1]) : 200'000);
    return 0;
}
