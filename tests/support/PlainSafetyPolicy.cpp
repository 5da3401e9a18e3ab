#include "support/PlainSafetyPolicy.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <vector>

namespace brimlet::test {

namespace {

const SafetyTables& tables = macosTables().safety;

bool begins(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

/// Begins with the folder and the character after it.
bool continues(std::string_view text, std::string_view folder, char after) {
    return begins(text, folder) && text.size() > folder.size() && text[folder.size()] == after;
}

bool ends(const std::string& text, const std::string& suffix) {
    return text.size() >= suffix.size() &&
           text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

std::vector<std::string_view> pieces(std::string_view path) {
    std::vector<std::string_view> result;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= path.size(); ++i) {
        if (i < path.size() && path[i] != '/')
            continue;
        if (i > start)
            result.push_back(path.substr(start, i - start));
        start = i + 1;
    }
    return result;
}

std::string lowerCaseExtension(std::string_view name) {
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string_view::npos || dot == 0)
        return "";
    std::string extension(name.substr(dot + 1));
    for (char& character : extension) {
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character + 32);
    }
    return extension;
}

} // namespace

std::string PlainSafetyPolicy::baseOf(const JunkRule& rule) const {
    return rule.base[0] == '/' ? std::string(rule.base) : home + "/" + std::string(rule.base);
}

const JunkRule* PlainSafetyPolicy::rule(const std::string& path) const {
    for (const JunkRule& candidate : rules) {
        const std::string base = baseOf(candidate);
        if (!continues(path, base, '/'))
            continue;
        const std::vector<std::string_view> below = pieces(std::string_view(path).substr(base.size()));
        const std::string_view top = below.empty() ? "" : below.front();
        if (std::ranges::count(candidate.excludedNames, top) > 0)
            return nullptr;
        if (!candidate.extensions || std::ranges::count(*candidate.extensions, lowerCaseExtension(top)) > 0)
            return &candidate;
    }
    return nullptr;
}

SafetyVerdict PlainSafetyPolicy::verdict(const std::string& rawPath) const {
    std::string path = rawPath;
    if (path == "/System/Volumes/Data")
        path = "/";
    else if (begins(path, "/System/Volumes/Data/"))
        path = path.substr(20);

    const SafetyVerdict root = {Risk::protected_, "Root folder of the system or your user account."};
    if (path == "/" || path == home || path == "/Users" || path == "/Applications" || path == "/Library")
        return root;
    if (pieces(path).size() < 2)
        return root;
    for (const PlaceRow& row : tables.systemPlaces) {
        if (path == row.path || continues(path, row.path, '/'))
            return {Risk::protected_, std::string(row.reason)};
    }
    const SafetyVerdict kept = {Risk::protected_,
                                "Folder used by macOS. Brimlet empties its contents but keeps the folder."};
    for (const JunkRule& candidate : rules) {
        if (path == baseOf(candidate))
            return kept;
    }
    if (path == home + "/.Trash")
        return kept;
    if (const JunkRule* covering = rule(path))
        return {covering->risk, std::string(covering->explanation)};
    if (begins(path, home + "/")) {
        const std::string inHome = path.substr(home.size() + 1);
        if (std::ranges::count(tables.standardFolders, inHome) > 0)
            return {Risk::protected_,
                    "Standard folder in your user account. You can delete its contents, but not the folder."};
        for (const PlaceRow& row : tables.homePlaces) {
            if (inHome == row.path || continues(inHome, row.path, '/') || continues(inHome, row.path, '.'))
                return {begins(row.path, "Library/Preferences") ? Risk::review : Risk::protected_,
                        std::string(row.reason)};
        }
    }
    for (const std::string_view marker : tables.packageMarkers) {
        if (path.find(marker) != std::string::npos)
            return {Risk::protected_,
                    "Inside a ." + std::string(marker.substr(1, marker.size() - 2)) +
                        " package. Deleting individual pieces corrupts it; remove the whole "
                        "package if you no longer use it."};
    }
    return ends(path, ".app") ? applicationVerdict(rawPath) : remainingVerdict(path);
}

SafetyVerdict PlainSafetyPolicy::applicationVerdict(const std::string& rawPath) const {
    const std::optional<std::string> identifier = bundles.identifier(rawPath);
    if (identifier && begins(*identifier, "com.apple."))
        return {Risk::protected_, "Apple app included with macOS or required by the system."};
    if (identifier && std::ranges::count(running.identifiers(), *identifier) > 0)
        return {Risk::protected_, "The app is open. Quit it before removing it."};
    if (identifier && bundles.ownIdentifier() == identifier)
        return {Risk::protected_, "This is Brimlet."};
    return {Risk::review, "Application. Use Uninstall to remove its data too."};
}

SafetyVerdict PlainSafetyPolicy::remainingVerdict(const std::string& path) const {
    if (ends(path, ".photoslibrary") || ends(path, ".musiclibrary"))
        return {Risk::protected_, "Your photo or music library. Manage it from its app."};
    if (begins(path, home + "/Library/"))
        return {Risk::review, "App data. The app may lose settings or content if it’s still installed."};
    for (const char* shared : {"/Library/", "/private/", "/usr/", "/opt/"}) {
        if (begins(path, shared))
            return {Risk::review,
                    "Shared file used by the system or a tool. May require an administrator password."};
    }
    if (begins(path, home + "/Downloads/"))
        return {Risk::safe, "Download. Make sure you don’t need it."};
    if (begins(path, home + "/.Trash/"))
        return {Risk::safe, "Already in the Trash."};
    if (begins(path, home + "/"))
        return {Risk::review, "Personal file. Make sure you have a backup if it matters."};
    return {Risk::review, "Review before deleting."};
}

} // namespace brimlet::test
