#include "safety/ProtectedPlaces.h"

#include "core/Localized.h"
#include "core/Paths.h"
#include "platform/DirectoryLister.h"
#include "platform/EntryLookup.h"
#include "platform/HomeFolder.h"
#include "safety/SafetyPolicy.h"

#include <algorithm>

namespace brimlet {

namespace {

/// The entries of a place's folder that are the place, or one of the family that bears its name and a dot.
std::vector<std::string> membersOf(const ProtectedPlace& place, const DirectoryLister& lister) {
    if (place.reach == PlaceReach::itself)
        return {place.path};
    const std::string name(lastPathComponent(place.path));
    const std::string folder = place.path.substr(0, place.path.size() - name.size() - 1);
    std::vector<std::string> members;
    for (const ListedChild& child :
         lister.children(pathWithoutLinks(folder)).value_or(std::vector<ListedChild>())) {
        if (child.name == name || child.name.starts_with(name + "."))
            members.push_back(folder + "/" + child.name);
    }
    return members;
}

} // namespace

ProtectedPlaces::ProtectedPlaces(const std::vector<Place>& places, const EntryLookup& entries) {
    for (const Place& place : places) {
        if (!entries.find(place.path))
            continue;
        const std::size_t row = m_reasons.size();
        m_reasons.push_back(place.reason);
        add(place.path, row, entries);
        if (const std::string real = pathWithoutLinks(place.path); real != place.path)
            add(real, row, entries);
    }
}

/// Every folder on the way down holds the place.
void ProtectedPlaces::add(const std::string& path, std::size_t row, const EntryLookup& entries) {
    m_paths.add(normalisedPath(path));
    m_rows.push_back(row);
    for (std::size_t end = path.size(); end != std::string::npos && end > 0; end = path.rfind('/', end - 1)) {
        const auto found = entries.find(path.substr(0, end));
        if (found && found->identity.entry.inode != 0)
            m_holders.emplace(found->identity.entry, row);
    }
}

std::optional<std::string>
ProtectedPlaces::reasonToKeep(std::string_view path, const std::optional<PlacedIdentity>& identity) const {
    if (const auto row = m_paths.firstWithin(normalisedPath(path)))
        return m_reasons[m_rows[*row]];
    const auto holder = identity ? m_holders.find(identity->entry) : m_holders.end();
    if (holder != m_holders.end())
        return m_reasons[holder->second];
    return std::nullopt;
}

std::string historyFolder(const std::string& homeFolder, const SafetyTables& tables) {
    return homeFolder + "/" + std::string(tables.historyFolder);
}

PlacesSource placesOfUser(const std::string& homeFolder, const SafetyTables& tables,
                          const SafetyPolicy& policy, const EntryLookup& entries,
                          const DirectoryLister& lister) {
    return [homeFolder, &tables, &policy, &entries, &lister] {
        std::vector<ProtectedPlaces::Place> places = {
            {homeFolder, localized("It contains your home folder.")},
            {homeFolder + "/" + std::string(tables.trash), localized("It contains your Trash.")},
            {historyFolder(homeFolder, tables), localized("It contains the history of Brimlet.")},
            {programPath(), localized("It contains Brimlet itself.")},
        };
        for (const ProtectedPlace& place : policy.protectedPlaces()) {
            for (std::string& member : membersOf(place, lister)) {
                std::string reason =
                    localized("It contains a protected place:") + " " + displayPath(member, homeFolder);
                places.push_back({std::move(member), std::move(reason)});
            }
        }
        return ProtectedPlaces(places, entries);
    };
}

} // namespace brimlet
