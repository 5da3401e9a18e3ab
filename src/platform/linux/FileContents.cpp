#include "platform/FileContents.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr std::size_t firstRead = std::size_t{64} * 1024;

std::optional<std::string> readToEnd(int descriptor, std::size_t limit) {
    struct stat status {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    std::string bytes;
    std::size_t filled = 0;
    // The file may grow meanwhile: one byte beyond the limit tells.
    while (filled <= limit) {
        bytes.resize(std::min(limit + 1, std::max(2 * filled, firstRead)));
        const ssize_t count = read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        filled += static_cast<std::size_t>(count);
        if (count == 0) {
            bytes.resize(filled);
            return bytes;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> fileContents(const std::string& path, std::size_t limit) {
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return std::nullopt;
    std::optional<std::string> bytes = readToEnd(descriptor, limit);
    close(descriptor);
    return bytes;
}

} // namespace brimlet
