#include "platform/linux/MountPoints.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr std::size_t mountPointField = 4; // of a line, counted from 0

bool isOctal(char digit) {
    return digit >= '0' && digit <= '7';
}

/// Blanks, line feeds and backslashes stand as a backslash and three octal digits.
std::string unescaped(std::string_view field) {
    std::string path;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const std::string_view digits = field.substr(i + 1).substr(0, 3);
        if (field[i] != '\\' || digits.size() < 3 || !std::all_of(digits.begin(), digits.end(), isOctal)) {
            path += field[i];
            continue;
        }
        path += static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
        i += digits.size();
    }
    return path;
}

/// The kernel's number of the mount that a descriptor is on; empty when it isn't told.
std::string mountOf(int descriptor) {
    std::ifstream about("/proc/self/fdinfo/" + std::to_string(descriptor));
    for (std::string line; std::getline(about, line);) {
        if (line.starts_with("mnt_id:"))
            return line;
    }
    return {};
}

} // namespace

std::vector<std::string> mountPointsFromText(std::string_view text) {
    std::vector<std::string> points;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string field;
        for (std::size_t i = 0; i <= mountPointField; ++i)
            fields >> field;
        if (fields)
            points.push_back(unescaped(field));
    }
    return points;
}

bool MountTable::hasChanged() {
    pollfd change{fileno(m_file.get()), POLLPRI, 0};
    return poll(&change, 1, 0) != 0; // also when it can't be told
}

void MountTable::read() {
    std::string text;
    std::array<char, 16384> block{};
    std::rewind(m_file.get());
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), m_file.get()))
        text.append(block.data(), got);
    m_points = mountPointsFromText(text);
    std::sort(m_points.begin(), m_points.end());
}

bool MountTable::holdsBelow(std::string_view folder) {
    const std::lock_guard lock(m_mutex);
    const bool isNew = !m_file;
    if (isNew)
        m_file.reset(std::fopen("/proc/thread-self/mountinfo", "re"));
    if (!m_file)
        return false;
    if (isNew || hasChanged())
        read();
    const std::string below = std::string(folder) + (folder.ends_with('/') ? "" : "/");
    const auto first = std::upper_bound(m_points.begin(), m_points.end(), below);
    return first != m_points.end() && first->starts_with(below);
}

bool isMountPoint(int folder, const char* name) {
    const bool isItself = *name == '\0';
    const int other = openat(folder, isItself ? ".." : name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (other < 0)
        return false;
    const bool isSame = mountOf(folder) == mountOf(other);
    close(other);
    return !isSame;
}

} // namespace brimlet
