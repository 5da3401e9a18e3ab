#include "views/window/DiskSpace.h"
#include "app/state/ScanState.h"

#include <algorithm>

namespace brimlet {

const std::optional<VolumeInfo>& DiskSpace::volume() const {
    static const std::optional<VolumeInfo> none;
    return state() ? state()->scan()->volume() : none;
}

double DiskSpace::usedFraction() const {
    if (total() < 1)
        return 0;
    return std::clamp(1 - free() / total(), 0.0, 1.0);
}

bool DiskSpace::low() const {
    return total() > 0 && free() / total() < 0.1;
}

} // namespace brimlet
