// What counts as junk on one operating system: its rules, and the headings they stand under.
#pragma once

#include "safety/JunkRule.h"

#include <span>
#include <string_view>

namespace brimlet {

struct JunkTables {
    /// In the order in which the safety policy tries them: earlier rows win.
    std::span<const JunkRule> rules;
    /// The headings in display order.
    std::span<const JunkGroup> groups;
    /// What the bases of rules begin with that look only where the application may read all of the user's
    /// data.
    std::string_view guardedBases;
    /// A file by which the system remembers how a folder looks. It is junk in the Trash only.
    std::string_view folderSettings;
};

/// The rule of this id, or null.
const JunkRule* junkRule(std::span<const JunkRule> rules, std::string_view id);

/// How a heading presents itself.
struct JunkGroupLook {
    std::string_view caseName; ///< stable identifier for JSON
    std::string_view title;    ///< English text, key of the translation look-up
    std::string_view symbol;   ///< name in the icon table
};

const JunkGroupLook& look(JunkGroup group);

} // namespace brimlet
