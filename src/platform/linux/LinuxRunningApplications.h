#pragma once

#include "platform/RunningApplications.h"

namespace brimlet {

class BundleReader;

/// A process belongs to every application bundle that its executable lies in.
class LinuxRunningApplications final : public RunningApplications {
public:
    /// bundles       must outlive this
    /// processFolder where the kernel tells of processes
    LinuxRunningApplications(const BundleReader& bundles, std::string_view bundleSuffix,
                             std::string processFolder = "/proc");

    std::vector<std::string> identifiers() const override;

private:
    const BundleReader& m_bundles;
    std::string m_bundleMarker; ///< what follows a bundle's name in the path of a program in it
    std::string m_processFolder;
};

} // namespace brimlet
