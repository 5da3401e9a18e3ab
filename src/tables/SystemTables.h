// What counts as what on one operating system, and its words for it: one value, chosen at the start of a
// program and handed on from there. Data, no logic.
//
// Each system's tables stand in a folder of their own, laid out to be read row by row. Immutable; any thread.
#pragma once

#include "core/FolderRules.h"
#include "junk/JunkCatalogue.h"
#include "safety/SafetyTables.h"
#include "tables/SystemWords.h"

#include <array>
#include <span>
#include <string_view>

namespace brimlet {

/// What only a program with access to all of the user's data can open.
struct AccessPlaces {
    std::string_view database;   ///< absolute
    std::string_view homeFolder; ///< below the home folder
    std::string_view settings;   ///< URL of the settings in which that access is granted
};

struct SystemTables {
    std::string_view name; ///< as "--system" takes it
    FolderRules folders;
    SafetyTables safety;
    JunkTables junk;
    SystemWords words;
    AccessPlaces access;
    std::string_view preferencesFile; ///< below the home folder
    /// What each bucket holds, in the order of StorageBucket. English keys of the translation look-up.
    std::array<std::string_view, storageBucketCount> bucketExplanations;
};

const SystemTables& macosTables();

/// All systems, in the order of their names.
std::span<const SystemTables* const> allSystems();

/// The tables of this name, or null.
const SystemTables* systemNamed(std::string_view name);

/// The system that is spoken of where none is asked for.
const SystemTables& defaultSystem();

} // namespace brimlet
