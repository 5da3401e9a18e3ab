#include "platform/linux/LinuxRunningApplications.h"

#include "platform/BundleReader.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace brimlet {

namespace {

namespace fs = std::filesystem;

bool isProcessNumber(const std::string& name) {
    return std::ranges::all_of(name, [](char digit) { return digit >= '0' && digit <= '9'; });
}

/// The paths of all bundles that a process of this system runs from.
std::set<std::string> runningBundles(const std::string& bundleMarker, const std::string& processFolder) {
    std::set<std::string> bundles;
    std::error_code error;
    for (fs::directory_iterator it(processFolder, error), end; !error && it != end; it.increment(error)) {
        if (!isProcessNumber(it->path().filename().native()))
            continue;
        // Other users' processes don't tell, and any may have ended meanwhile.
        std::error_code untold;
        const std::string executable = fs::read_symlink(it->path() / "exe", untold).native();
        for (std::size_t marker = executable.find(bundleMarker); marker != std::string::npos;
             marker = executable.find(bundleMarker, marker + 1))
            bundles.insert(executable.substr(0, marker + bundleMarker.size() - 1));
    }
    return bundles;
}

} // namespace

LinuxRunningApplications::LinuxRunningApplications(const BundleReader& bundles, std::string_view bundleSuffix,
                                                   std::string processFolder)
    : m_bundles(bundles)
    , m_bundleMarker(std::string(bundleSuffix) + "/")
    , m_processFolder(std::move(processFolder)) {}

std::vector<std::string> LinuxRunningApplications::identifiers() const {
    std::vector<std::string> identifiers;
    for (const std::string& bundle : runningBundles(m_bundleMarker, m_processFolder)) {
        if (std::optional<std::string> identifier = m_bundles.identifier(bundle))
            identifiers.push_back(*std::move(identifier));
    }
    return identifiers;
}

} // namespace brimlet
