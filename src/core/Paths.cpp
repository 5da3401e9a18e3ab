#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

std::string_view normalisedPath(std::string_view path) {
    if (path == dataVolumePrefix)
        return "/";
    return isBelow(path, dataVolumePrefix) ? path.substr(dataVolumePrefix.size()) : path;
}

std::string displayPath(std::string_view path, std::string_view homeFolder) {
    const std::string_view plain = normalisedPath(path);
    if (plain == homeFolder)
        return "~";
    if (isBelow(plain, homeFolder))
        return "~" + std::string(plain.substr(homeFolder.size()));
    return std::string(plain);
}

std::vector<std::string_view> pathComponents(std::string_view path) {
    std::vector<std::string_view> components;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (end > 0)
            components.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return components;
}

std::string_view lastPathComponent(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::string_view pathExtension(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

bool isBelow(std::string_view path, std::string_view folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

} // namespace brimlet
