// What the safety policy knows of the places of one operating system, as data. The order of each table is
// part of its meaning: the first row that applies decides. Texts are English keys of the translation look-up.
#pragma once

#include "safety/Risk.h"

#include <span>
#include <string_view>

namespace brimlet {

struct PlaceRow {
    std::string_view path;
    Risk risk;
    std::string_view reason;
};

/// Libraries that are managed from their own applications, by the end of their names.
struct LibraryRow {
    std::string_view suffix;
    std::string_view reason;
};

/// How applications are told, and which of them stay.
struct ApplicationTable {
    std::string_view suffix;           ///< of their folders
    std::string_view systemIdentifier; ///< what identifiers of the system's own begin with
    std::string_view systemReason;     ///< why those stay
};

struct SafetyTables {
    /// Absolute folders that hold everything else; they stay, what is in them may go.
    std::span<const std::string_view> roots;
    /// Absolute folders of the system, with all that is in them.
    std::span<const PlaceRow> systemPlaces;
    /// Places below the home folder. A row also covers what begins with its path and a dot, so that
    /// "Library/Containers/com.apple" covers every container of that family.
    std::span<const PlaceRow> homePlaces;
    /// Folders that every home folder has.
    std::span<const std::string_view> standardFolders;
    /// What the path of a package's content contains. The trailing slash keeps the package itself out.
    std::span<const std::string_view> packageMarkers;
    std::span<const LibraryRow> libraries;
    ApplicationTable applications;
    /// What is said of all that lies below a folder and that nothing before has judged: absolute, or relative
    /// to the home folder. "" is the home folder itself.
    std::span<const PlaceRow> remainingPlaces;
    std::string_view trash; ///< below the home folder
    std::string_view
        historyFolder; ///< below the home folder: the application's own record of what it removed
    std::string_view emptiedFolder; ///< why a folder stays whose content may go
    std::string_view heldBySystem;  ///< why something did not go although its permissions let it
};

} // namespace brimlet
