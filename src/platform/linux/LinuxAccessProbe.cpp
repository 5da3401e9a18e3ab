#include "platform/linux/LinuxAccessProbe.h"

#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace brimlet {

namespace {

/// Opening is all it takes: neither is read.
bool canOpen(const std::string& path, int flags) {
    const int descriptor = open(path.c_str(), flags | O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    close(descriptor);
    return true;
}

} // namespace

LinuxAccessProbe::LinuxAccessProbe(std::string database, std::string folder)
    : m_database(std::move(database))
    , m_folder(std::move(folder)) {}

bool LinuxAccessProbe::hasFullDiskAccess() const {
    return canOpen(m_database, 0) || canOpen(m_folder, O_DIRECTORY);
}

} // namespace brimlet
