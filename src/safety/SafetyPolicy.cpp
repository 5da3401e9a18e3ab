#include "safety/SafetyPolicy.h"

#include "core/Localized.h"
#include "core/Paths.h"
#include "platform/BundleReader.h"
#include "platform/RunningApplications.h"
#include "safety/FolderTable.h"
#include "safety/SafetyTables.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace brimlet {

namespace {

/// A verdict before translation.
struct Judgement {
    Risk risk;
    std::string_view reason;
};

constexpr Judgement rootFolder = {Risk::protected_, "Root folder of the system or your user account."};
constexpr Judgement emptiedFolder = {
    Risk::protected_, "Folder used by macOS. Brimlet empties its contents but keeps the folder."};
constexpr Judgement standardFolder = {
    Risk::protected_,
    "Standard folder in your user account. You can delete its contents, but not the folder."};
constexpr Judgement application = {Risk::review, "Application. Use Uninstall to remove its data too."};

bool isOneOf(std::string_view path, auto&&... others) {
    return ((path == others) || ...);
}

bool hasFewerThanTwoComponents(std::string_view path) {
    const std::size_t first = path.find_first_not_of('/');
    const std::size_t end = first == std::string_view::npos ? first : path.find('/', first);
    return end == std::string_view::npos || path.find_first_not_of('/', end) == std::string_view::npos;
}

std::string_view firstComponent(std::string_view path) {
    path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
    return path.substr(0, path.find('/'));
}

bool coversByName(const PlaceRow& row, std::string_view belowHome) {
    if (!belowHome.starts_with(row.path))
        return false;
    const std::string_view rest = belowHome.substr(row.path.size());
    return rest.empty() || rest.front() == '/' || rest.front() == '.';
}

/// The judgement on a path that is `belowHome` in the home folder.
std::optional<Judgement> judgePlaceInHome(std::string_view belowHome) {
    if (std::ranges::find(standardFolders, belowHome) != standardFolders.end())
        return standardFolder;
    const auto row = std::ranges::find_if(
        userTable, [&](const PlaceRow& candidate) { return coversByName(candidate, belowHome); });
    if (row == userTable.end())
        return std::nullopt;
    return Judgement{row->risk, row->reason};
}

/// The sentence about a part of a package; empty for a path that isn't inside one.
std::optional<std::string> insidePackageReason(std::string_view path) {
    const auto marker = std::ranges::find_if(packageMarkers, [&](std::string_view candidate) {
        return path.find(candidate) != std::string_view::npos;
    });
    if (marker == packageMarkers.end())
        return std::nullopt;
    std::string reason = localized("Inside a %1 package. Deleting individual pieces corrupts it; remove the "
                                   "whole package if you no longer use it.");
    if (const std::size_t place = reason.find("%1"); place != std::string::npos)
        reason.replace(place, 2, marker->substr(0, marker->size() - 1));
    return reason;
}

} // namespace

struct SafetyPolicy::Tables {
    std::string home;
    std::string belowHome; ///< the home folder and a slash
    std::string trash;
    std::span<const JunkRule> rules;
    FolderTable systemFolders; ///< rows of systemTable
    FolderTable bases;         ///< rows of `rules`
    std::vector<std::size_t> baseLengths;
    const BundleReader& bundles;
    const RunningApplications& running;

    std::optional<Judgement> judgeFixedPlace(std::string_view path) const;
    Judgement judgeApplication(const std::string& bundlePath) const;
    Judgement judgeRemaining(std::string_view path) const;
};

SafetyPolicy::SafetyPolicy(std::string homeFolder, std::span<const JunkRule> rules,
                           const BundleReader& bundles, const RunningApplications& running) {
    const std::string belowHome = homeFolder + "/";
    FolderTable systemFolders;
    for (const PlaceRow& row : systemTable)
        systemFolders.add(row.path);
    FolderTable bases;
    std::vector<std::size_t> baseLengths;
    for (const JunkRule& rule : rules) {
        const std::string base = rule.resolvedBase(homeFolder);
        bases.add(base);
        baseLengths.push_back(base.size());
    }
    m_tables = std::unique_ptr<const Tables>(new Tables{.home = std::move(homeFolder),
                                                        .belowHome = belowHome,
                                                        .trash = belowHome + ".Trash",
                                                        .rules = rules,
                                                        .systemFolders = std::move(systemFolders),
                                                        .bases = std::move(bases),
                                                        .baseLengths = std::move(baseLengths),
                                                        .bundles = bundles,
                                                        .running = running});
}

SafetyPolicy::~SafetyPolicy() = default;

const JunkRule* SafetyPolicy::rule(std::string_view coveringPath) const {
    for (const std::size_t row : m_tables->bases.rowsAbove(coveringPath)) {
        const JunkRule& rule = m_tables->rules[row];
        const std::string_view topItem = firstComponent(coveringPath.substr(m_tables->baseLengths[row]));
        if (rule.excludes(topItem))
            return nullptr;
        if (rule.admitsExtensionOf(topItem))
            return &rule;
    }
    return nullptr;
}

// The order of the questions is the policy; each takes what the ones before it have left.
SafetyVerdict SafetyPolicy::verdict(std::string_view forPath) const {
    const auto give = [](const Judgement& judgement) {
        return SafetyVerdict{judgement.risk, localized(judgement.reason)};
    };
    const std::string_view path = normalisedPath(forPath);
    if (const auto judgement = m_tables->judgeFixedPlace(path))
        return give(*judgement);
    if (const JunkRule* covering = rule(path))
        return give({covering->risk, covering->explanation});
    if (path.starts_with(m_tables->belowHome)) {
        if (const auto judgement = judgePlaceInHome(path.substr(m_tables->belowHome.size())))
            return give(*judgement);
    }
    if (auto reason = insidePackageReason(path))
        return {Risk::protected_, *std::move(reason)};
    if (path.ends_with(".app"))
        return give(m_tables->judgeApplication(std::string(forPath)));
    return give(m_tables->judgeRemaining(path));
}

std::optional<Judgement> SafetyPolicy::Tables::judgeFixedPlace(std::string_view path) const {
    if (isOneOf(path, "/", home, "/Users", "/Applications", "/Library") || hasFewerThanTwoComponents(path))
        return rootFolder;
    if (const auto row = systemFolders.firstCovering(path))
        return Judgement{systemTable[*row].risk, systemTable[*row].reason};
    if (bases.contains(path) || path == trash)
        return emptiedFolder;
    return std::nullopt;
}

Judgement SafetyPolicy::Tables::judgeApplication(const std::string& bundlePath) const {
    const std::optional<std::string> identifier = bundles.identifier(bundlePath);
    if (!identifier)
        return application;
    if (identifier->starts_with("com.apple."))
        return {Risk::protected_, "Apple app included with macOS or required by the system."};
    if (std::ranges::count(running.identifiers(), *identifier) > 0)
        return {Risk::protected_, "The app is open. Quit it before removing it."};
    if (identifier == bundles.ownIdentifier())
        return {Risk::protected_, "This is Brimlet."};
    return application;
}

Judgement SafetyPolicy::Tables::judgeRemaining(std::string_view path) const {
    const auto inHome = [&](std::string_view folder) {
        return path.starts_with(belowHome) && path.substr(belowHome.size()).starts_with(folder);
    };
    const auto inAnyOf = [&](auto&&... folders) { return (path.starts_with(folders) || ...); };
    if (path.ends_with(".photoslibrary") || path.ends_with(".musiclibrary"))
        return {Risk::protected_, "Your photo or music library. Manage it from its app."};
    if (inHome("Library/"))
        return {Risk::review, "App data. The app may lose settings or content if it’s still installed."};
    if (inAnyOf("/Library/", "/private/", "/usr/", "/opt/"))
        return {Risk::review,
                "Shared file used by the system or a tool. May require an administrator password."};
    if (inHome("Downloads/"))
        return {Risk::safe, "Download. Make sure you don’t need it."};
    if (inHome(".Trash/"))
        return {Risk::safe, "Already in the Trash."};
    if (inHome(""))
        return {Risk::review, "Personal file. Make sure you have a backup if it matters."};
    return {Risk::review, "Review before deleting."};
}

} // namespace brimlet
