// How much space a volume has.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace brimlet {

/// The space figures of one volume, in bytes.
struct VolumeInfo {
    std::string name;
    std::int64_t total = 0;
    std::int64_t available = 0;
    std::int64_t availableForImportantUsage = 0; ///< counts what the system would purge by itself as free
    bool operator==(const VolumeInfo&) const = default;
};

class Volumes {
public:
    virtual ~Volumes() = default;

    /// The volume that holds an absolute path; empty where it reports no capacity. An unnamed volume is
    /// called as the system's words say. Any thread; a network volume may take its time.
    virtual std::optional<VolumeInfo> volumeInfo(const std::string& path) const = 0;
};

} // namespace brimlet
