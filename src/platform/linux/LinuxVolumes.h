// Space figures from statvfs; the name is the file system's label.
#pragma once

#include "platform/Volumes.h"

#include <utility>

namespace brimlet {

class LinuxVolumes final : public Volumes {
public:
    /// unnamed   what a volume without a label is called
    explicit LinuxVolumes(std::string unnamed)
        : m_unnamed(std::move(unnamed)) {}

    std::optional<VolumeInfo> volumeInfo(const std::string& path) const override;

private:
    std::string m_unnamed;
};

} // namespace brimlet
