#include "support/TreeSnapshot.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <sys/stat.h>

namespace brimlet::test {

namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::string described(const std::filesystem::path& path) {
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0)
        return "unreadable";
    std::ostringstream text;
    text << std::oct << status.st_mode << std::dec << ' ';
    if (!S_ISDIR(status.st_mode))
        text << status.st_nlink << ' ' << status.st_size << ' ' << status.st_mtim.tv_sec << '.'
             << status.st_mtim.tv_nsec << ' ';
    if (S_ISLNK(status.st_mode))
        text << std::filesystem::read_symlink(path).native();
    if (S_ISREG(status.st_mode) && status.st_size < (1 << 20))
        text << std::hash<std::string>()(contentOf(path));
    return text.str();
}

} // namespace

std::map<std::string, std::string> snapshotOf(const std::string& path) {
    namespace fs = std::filesystem;
    std::map<std::string, std::string> entries;
    std::error_code error;
    if (!fs::exists(fs::symlink_status(path, error)))
        return entries;
    entries[""] = described(path);
    if (!fs::is_directory(fs::symlink_status(path, error)))
        return entries;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path))
        entries[entry.path().native().substr(path.size())] = described(entry.path());
    return entries;
}

} // namespace brimlet::test
