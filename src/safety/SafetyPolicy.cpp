#include "safety/SafetyPolicy.h"

#include "core/Localized.h"
#include "core/Paths.h"
#include "platform/BundleReader.h"
#include "platform/RunningApplications.h"
#include "safety/FolderTable.h"

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
constexpr Judgement standardFolder = {
    Risk::protected_,
    "Standard folder in your user account. You can delete its contents, but not the folder."};
constexpr Judgement application = {Risk::review, "Application. Use Uninstall to remove its data too."};

bool isOneOf(std::string_view text, std::span<const std::string_view> texts) {
    return std::ranges::find(texts, text) != texts.end();
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

} // namespace

struct SafetyPolicy::Places {
    SafetyTables tables;
    std::string home;
    std::string trash;
    std::span<const JunkRule> rules;
    FolderTable systemFolders; ///< rows of tables.systemPlaces
    FolderTable bases;         ///< rows of `rules`
    std::vector<std::size_t> baseLengths;
    const BundleReader& bundles;
    const RunningApplications& running;

    /// What follows the home folder and a slash; empty for what lies elsewhere.
    std::string_view belowHome(std::string_view path) const;
    std::optional<Judgement> judgeFixedPlace(std::string_view path) const;
    std::optional<Judgement> judgePlaceInHome(std::string_view belowHome) const;
    std::optional<std::string> insidePackageReason(std::string_view path) const;
    Judgement judgeApplication(const std::string& bundlePath) const;
    Judgement judgeRemaining(std::string_view path) const;
};

SafetyPolicy::SafetyPolicy(std::string homeFolder, const SafetyTables& tables,
                           std::span<const JunkRule> rules, const BundleReader& bundles,
                           const RunningApplications& running) {
    FolderTable systemFolders;
    for (const PlaceRow& row : tables.systemPlaces)
        systemFolders.add(row.path);
    FolderTable bases;
    std::vector<std::size_t> baseLengths;
    for (const JunkRule& rule : rules) {
        const std::string base = rule.resolvedBase(homeFolder);
        bases.add(base);
        baseLengths.push_back(base.size());
    }
    std::string trash = homeFolder + "/" + std::string(tables.trash);
    m_places = std::unique_ptr<const Places>(new Places{.tables = tables,
                                                        .home = std::move(homeFolder),
                                                        .trash = std::move(trash),
                                                        .rules = rules,
                                                        .systemFolders = std::move(systemFolders),
                                                        .bases = std::move(bases),
                                                        .baseLengths = std::move(baseLengths),
                                                        .bundles = bundles,
                                                        .running = running});
}

SafetyPolicy::~SafetyPolicy() = default;

const JunkRule* SafetyPolicy::rule(std::string_view coveringPath) const {
    for (const std::size_t row : m_places->bases.rowsAbove(coveringPath)) {
        const JunkRule& rule = m_places->rules[row];
        const std::string_view topItem = firstComponent(coveringPath.substr(m_places->baseLengths[row]));
        if (rule.excludes(topItem))
            return nullptr;
        if (rule.admitsExtensionOf(topItem))
            return &rule;
    }
    return nullptr;
}

std::vector<ProtectedPlace> SafetyPolicy::protectedPlaces() const {
    std::vector<ProtectedPlace> places;
    for (const PlaceRow& row : m_places->tables.systemPlaces)
        places.push_back({std::string(row.path), PlaceReach::itself});
    for (const PlaceRow& row : m_places->tables.homePlaces) {
        if (row.risk == Risk::protected_)
            places.push_back({m_places->home + "/" + std::string(row.path), PlaceReach::family});
    }
    for (const JunkRule& rule : m_places->rules)
        places.push_back({rule.resolvedBase(m_places->home), PlaceReach::itself});
    for (const std::string_view name : m_places->tables.standardFolders)
        places.push_back({m_places->home + "/" + std::string(name), PlaceReach::itself});
    return places;
}

// The order of the questions is the policy; each takes what the ones before it have left.
SafetyVerdict SafetyPolicy::verdict(std::string_view forPath) const {
    const auto give = [](const Judgement& judgement) {
        return SafetyVerdict{judgement.risk, localized(judgement.reason)};
    };
    const std::string_view path = normalisedPath(forPath);
    if (const auto judgement = m_places->judgeFixedPlace(path))
        return give(*judgement);
    if (const JunkRule* covering = rule(path))
        return give({covering->risk, covering->explanation});
    if (const auto judgement = m_places->judgePlaceInHome(m_places->belowHome(path)))
        return give(*judgement);
    if (auto reason = m_places->insidePackageReason(path))
        return {Risk::protected_, *std::move(reason)};
    if (path.ends_with(m_places->tables.applications.suffix))
        return give(m_places->judgeApplication(std::string(forPath)));
    return give(m_places->judgeRemaining(path));
}

std::string_view SafetyPolicy::Places::belowHome(std::string_view path) const {
    return isBelow(path, home) ? path.substr(home.size() + 1) : std::string_view();
}

std::optional<Judgement> SafetyPolicy::Places::judgeFixedPlace(std::string_view path) const {
    if (path == home || isOneOf(path, tables.roots) || hasFewerThanTwoComponents(path))
        return rootFolder;
    if (const auto row = systemFolders.firstCovering(path))
        return Judgement{tables.systemPlaces[*row].risk, tables.systemPlaces[*row].reason};
    if (bases.contains(path) || path == trash)
        return Judgement{Risk::protected_, tables.emptiedFolder};
    return std::nullopt;
}

std::optional<Judgement> SafetyPolicy::Places::judgePlaceInHome(std::string_view belowHome) const {
    if (belowHome.empty())
        return std::nullopt;
    if (isOneOf(belowHome, tables.standardFolders))
        return standardFolder;
    const auto row = std::ranges::find_if(
        tables.homePlaces, [&](const PlaceRow& candidate) { return coversByName(candidate, belowHome); });
    if (row == tables.homePlaces.end())
        return std::nullopt;
    return Judgement{row->risk, row->reason};
}

/// The sentence about a part of a package; empty for a path that isn't inside one.
std::optional<std::string> SafetyPolicy::Places::insidePackageReason(std::string_view path) const {
    const auto marker = std::ranges::find_if(tables.packageMarkers, [&](std::string_view candidate) {
        return path.find(candidate) != std::string_view::npos;
    });
    if (marker == tables.packageMarkers.end())
        return std::nullopt;
    std::string reason = localized("Inside a %1 package. Deleting individual pieces corrupts it; remove the "
                                   "whole package if you no longer use it.");
    if (const std::size_t place = reason.find("%1"); place != std::string::npos)
        reason.replace(place, 2, marker->substr(0, marker->size() - 1));
    return reason;
}

Judgement SafetyPolicy::Places::judgeApplication(const std::string& bundlePath) const {
    const std::optional<std::string> identifier = bundles.identifier(bundlePath);
    if (!identifier)
        return application;
    if (identifier->starts_with(tables.applications.systemIdentifier))
        return {Risk::protected_, tables.applications.systemReason};
    if (std::ranges::count(running.identifiers(), *identifier) > 0)
        return {Risk::protected_, "The app is open. Quit it before removing it."};
    if (identifier == bundles.ownIdentifier())
        return {Risk::protected_, "This is Brimlet."};
    return application;
}

Judgement SafetyPolicy::Places::judgeRemaining(std::string_view path) const {
    for (const LibraryRow& row : tables.libraries)
        if (path.ends_with(row.suffix))
            return {Risk::protected_, row.reason};
    const bool inHome = isBelow(path, home);
    const std::string_view below = belowHome(path);
    for (const PlaceRow& row : tables.remainingPlaces) {
        const bool covers = row.path.starts_with('/')
                                ? isBelow(path, row.path)
                                : inHome && (row.path.empty() || isBelow(below, row.path));
        if (covers)
            return {row.risk, row.reason};
    }
    return {Risk::review, "Review before deleting."};
}

} // namespace brimlet
