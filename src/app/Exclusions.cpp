#include "app/Exclusions.h"

#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

namespace {

std::string joined(const std::vector<std::string>& paths) {
    std::string raw;
    for (const std::string& path : paths)
        raw += (raw.empty() ? "" : "\n") + path;
    return raw;
}

} // namespace

std::vector<std::string> excludedPaths(std::string_view raw) {
    std::vector<std::string> paths;
    while (!raw.empty()) {
        const std::size_t end = std::min(raw.find('\n'), raw.size());
        if (end > 0)
            paths.emplace_back(raw.substr(0, end));
        raw.remove_prefix(std::min(end + 1, raw.size()));
    }
    return paths;
}

std::unordered_set<std::string> excludedSet(std::string_view raw) {
    std::unordered_set<std::string> set;
    for (std::string& path : excludedPaths(raw))
        set.insert(std::move(path));
    return set;
}

bool canBeExcluded(std::string_view folder) {
    return !folder.empty() && folder.find('\n') == std::string_view::npos;
}

std::string withExcludedPath(std::string_view raw, std::string_view folder) {
    std::vector<std::string> paths = excludedPaths(raw);
    if (canBeExcluded(folder))
        paths.emplace_back(normalisedPath(folder));
    return joined(paths);
}

std::string withoutExcludedPath(std::string_view raw, std::size_t position) {
    std::vector<std::string> paths = excludedPaths(raw);
    if (position < paths.size())
        paths.erase(paths.begin() + static_cast<std::ptrdiff_t>(position));
    return joined(paths);
}

} // namespace brimlet
