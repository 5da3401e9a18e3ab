#include "platform/linux/MountPoints.h"

#include "core/Paths.h"

#include <algorithm>
#include <fstream>
#include <sstream>

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

bool holdsMountPoint(std::string_view folder) {
    const std::ifstream file("/proc/thread-self/mountinfo");
    std::ostringstream text;
    text << file.rdbuf();
    const std::vector<std::string> points = mountPointsFromText(text.str());
    return std::any_of(points.begin(), points.end(),
                       [&](const std::string& point) { return isBelow(point, folder); });
}

} // namespace brimlet
