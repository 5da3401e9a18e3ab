// Which folders no removal may take along: a folder can look harmless by its own path and still hold the home
// folder, the Trash, or a place that the safety policy protects.
//
// A picture of one moment, made once for each run and each plan: places that don't exist then protect
// nothing. Immutable; callable from any thread.
#pragma once

#include "platform/EntryIdentity.h"
#include "safety/FolderTable.h"
#include "safety/SafetyTables.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brimlet {

class DirectoryLister;
class EntryLookup;
class SafetyPolicy;

class ProtectedPlaces {
public:
    struct Place {
        std::string path;   ///< absolute, as it is called
        std::string reason; ///< why what holds it must stay; a sentence for the user that names it
    };

    /// The first of several places tells the reason. Blocks on the disk.
    ProtectedPlaces(const std::vector<Place>& places, const EntryLookup& entries);

    /// Why an item may not go for what lies in it, or empty. It is told by its path, as it is called or
    /// without links, or by what it is: another mount may show it under another path.
    std::optional<std::string> reasonToKeep(std::string_view path,
                                            const std::optional<PlacedIdentity>& identity) const;

private:
    struct HashByInode {
        std::size_t operator()(const EntryIdentity& identity) const { return identity.inode; }
    };

    void add(const std::string& path, std::size_t row, const EntryLookup& entries);

    FolderTable m_paths;
    std::vector<std::size_t> m_rows; ///< of m_reasons, by row of m_paths
    std::unordered_map<EntryIdentity, std::size_t, HashByInode> m_holders;
    std::vector<std::string> m_reasons;
};

/// Takes a picture when it is called.
using PlacesSource = std::function<ProtectedPlaces()>;

/// Where the application and the command line keep the history.
std::string historyFolder(const std::string& homeFolder, const SafetyTables& tables);

/// The places of a user: the home folder, the Trash, the history, the running program and what the policy
/// protects. All references must outlive the source.
PlacesSource placesOfUser(const std::string& homeFolder, const SafetyTables& tables,
                          const SafetyPolicy& policy, const EntryLookup& entries,
                          const DirectoryLister& lister);

} // namespace brimlet
