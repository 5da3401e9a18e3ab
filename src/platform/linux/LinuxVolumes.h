// Space figures from statvfs; the name is the file system's label.
#pragma once

#include "platform/Volumes.h"

namespace brimlet {

class LinuxVolumes final : public Volumes {
public:
    std::optional<VolumeInfo> volumeInfo(const std::string& path) const override;
};

} // namespace brimlet
