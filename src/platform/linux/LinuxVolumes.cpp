#include "platform/linux/LinuxVolumes.h"

#include "core/WholeNumber.h"

#include <charconv>
#include <dirent.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace brimlet {

namespace {

constexpr const char* labelFolder = "/dev/disk/by-label";

/// udev writes bytes that a file name should not hold as \xNN.
std::string withoutEscapes(std::string_view label) {
    std::string text;
    for (std::size_t at = 0; at < label.size();) {
        unsigned char byte = 0;
        const char* digits = label.data() + at + 2;
        if (label.substr(at, 2) == "\\x" && at + 4 <= label.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            text += static_cast<char>(byte);
            at += 4;
        } else {
            text += label[at++];
        }
    }
    return text;
}

/// The label of the file system on a device; empty where it has none.
std::string labelOf(dev_t device) {
    const std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(labelFolder), &closedir);
    if (!folder)
        return {};
    while (const dirent* entry = readdir(folder.get())) {
        struct stat info {};
        const bool known = fstatat(dirfd(folder.get()), entry->d_name, &info, 0) == 0;
        if (known && S_ISBLK(info.st_mode) && info.st_rdev == device)
            return withoutEscapes(entry->d_name);
    }
    return {};
}

} // namespace

std::optional<VolumeInfo> LinuxVolumes::volumeInfo(const std::string& path) const {
    struct statvfs figures {};
    struct stat info {};
    if (statvfs(path.c_str(), &figures) != 0 || stat(path.c_str(), &info) != 0 || figures.f_blocks == 0)
        return std::nullopt;
    const auto bytes = [&](fsblkcnt_t blocks) { return bytesOfBlocks(blocks, figures.f_frsize); };
    const std::string label = labelOf(info.st_dev);
    return VolumeInfo{label.empty() ? m_unnamed : label, bytes(figures.f_blocks), bytes(figures.f_bavail),
                      bytes(figures.f_bavail)};
}

} // namespace brimlet
