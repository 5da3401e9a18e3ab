// How many verdicts a second one core gives, on paths that need no look at running applications.

#include "platform/BundleReader.h"
#include "platform/RunningApplications.h"
#include "safety/SafetyPolicy.h"
#include "tables/SystemTables.h"

#include <array>
#include <benchmark/benchmark.h>
#include <string>

namespace brimlet {
namespace {

class NoBundles final : public BundleReader {
public:
    std::optional<std::string> identifier(const std::string&) const override { return std::nullopt; }
    std::optional<std::string> ownIdentifier() const override { return ownBundleIdentifier; }
};

class NothingRunning final : public RunningApplications {
public:
    std::vector<std::string> identifiers() const override { return {}; }
};

/// One path for each stretch of the decision, the longest ways included.
const std::array<std::string, 12> paths = {
    "/System/Library/Frameworks/AppKit.framework/Versions/C/Resources/Info.plist",
    "/Library/Application Support/Vendor/Product/Shared/Data/index.sqlite",
    "/usr/local/lib/node_modules/package/dist/bundle.min.js",
    "/Users/someone/Library/Caches/com.vendor.product/Cache.db-wal",
    "/Users/someone/Library/Caches/com.apple.nsurlsessiond/Downloads/tmp",
    "/Users/someone/Library/Containers/com.apple.mail/Data/Library/Caches/x",
    "/Users/someone/Library/Application Support/Vendor/Product/Profiles/Default/History",
    "/Users/someone/Downloads/Archive of last year (final).zip",
    "/Users/someone/Downloads/Installer-3.2.1.dmg",
    "/Users/someone/Pictures/Family.photoslibrary/originals/0/0A1B2C3D.heic",
    "/Users/someone/Documents/Projects/2023/Client/Deliverables/report-v7.pages",
    "/System/Volumes/Data/Users/someone/Movies/Holiday/clip-0042.mov",
};

void verdicts(benchmark::State& state) {
    const NoBundles bundles;
    const NothingRunning running;
    const SafetyPolicy policy("/Users/someone", macosTables().safety, macosTables().junk.rules, bundles,
                              running);
    std::int64_t given = 0;
    for (auto _ : state) {
        for (const std::string& path : paths)
            benchmark::DoNotOptimize(policy.verdict(path));
        given += static_cast<std::int64_t>(paths.size());
    }
    state.SetItemsProcessed(given);
}
BENCHMARK(verdicts);

void verdictOn(benchmark::State& state) {
    const NoBundles bundles;
    const NothingRunning running;
    const SafetyPolicy policy("/Users/someone", macosTables().safety, macosTables().junk.rules, bundles,
                              running);
    const std::string& path = paths[static_cast<std::size_t>(state.range(0))];
    for (auto _ : state)
        benchmark::DoNotOptimize(policy.verdict(path));
    state.SetLabel(path);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(verdictOn)->DenseRange(0, static_cast<int>(paths.size()) - 1);

} // namespace
} // namespace brimlet

BENCHMARK_MAIN();
