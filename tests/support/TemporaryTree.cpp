#include "support/TemporaryTree.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace brimlet::test {

namespace {

void check(bool done, const std::string& what) {
    if (!done)
        throw std::system_error(errno, std::generic_category(), what);
}

/// A descriptor that closes itself.
class OpenFile {
public:
    explicit OpenFile(const std::string& path)
        : m_descriptor(open(path.c_str(), O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0644)) {
        check(m_descriptor >= 0, path);
    }
    ~OpenFile() { close(m_descriptor); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    void write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
            check(written > 0, "write");
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }
    void resize(std::int64_t bytes) const { check(ftruncate(m_descriptor, bytes) == 0, "ftruncate"); }

private:
    int m_descriptor;
};

} // namespace

TemporaryTree::TemporaryTree() {
    std::string pattern =
        std::filesystem::canonical(std::filesystem::temp_directory_path()) / "brimlet-test-XXXXXX";
    check(mkdtemp(pattern.data()) != nullptr, pattern);
    m_root = pattern;
}

TemporaryTree::~TemporaryTree() {
    // Folders without permission are given it back first, or they could not be emptied by an ordinary user.
    std::error_code ignored;
    std::filesystem::recursive_directory_iterator it(m_root, ignored);
    for (; it != std::filesystem::recursive_directory_iterator(); it.increment(ignored)) {
        if (it->is_directory(ignored) && !it->is_symlink(ignored))
            std::filesystem::permissions(it->path(), std::filesystem::perms::owner_all, ignored);
    }
    std::filesystem::remove_all(m_root, ignored);
}

std::string TemporaryTree::path(std::string_view relative) const {
    return relative.empty() ? m_root : m_root + "/" + std::string(relative);
}

std::string TemporaryTree::directory(std::string_view relative) const {
    std::filesystem::create_directories(path(relative));
    return path(relative);
}

std::string TemporaryTree::file(std::string_view relative, std::size_t bytes) const {
    return fileWithText(relative, std::string(bytes, 'x'));
}

std::string TemporaryTree::fileWithText(std::string_view relative, std::string_view text) const {
    std::filesystem::create_directories(std::filesystem::path(path(relative)).parent_path());
    OpenFile(path(relative)).write(text);
    return path(relative);
}

std::string TemporaryTree::sparseFile(std::string_view relative, std::int64_t logicalBytes) const {
    std::filesystem::create_directories(std::filesystem::path(path(relative)).parent_path());
    OpenFile(path(relative)).resize(logicalBytes);
    return path(relative);
}

std::string TemporaryTree::symbolicLink(std::string_view relative, std::string_view target) const {
    check(symlink(std::string(target).c_str(), path(relative).c_str()) == 0, path(relative));
    return path(relative);
}

std::string TemporaryTree::hardLink(std::string_view relative, std::string_view existing) const {
    check(link(path(existing).c_str(), path(relative).c_str()) == 0, path(relative));
    return path(relative);
}

void TemporaryTree::setTimes(std::string_view relative, double accessed, double modified) const {
    const auto time = [](double seconds) {
        const double whole = std::floor(seconds);
        return timespec{static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
    };
    const std::array<timespec, 2> times = {time(accessed), time(modified)};
    check(utimensat(AT_FDCWD, path(relative).c_str(), times.data(), AT_SYMLINK_NOFOLLOW) == 0,
          path(relative));
}

bool TemporaryTree::exists(std::string_view relative) const {
    struct stat status {};
    return lstat(path(relative).c_str(), &status) == 0;
}

} // namespace brimlet::test
