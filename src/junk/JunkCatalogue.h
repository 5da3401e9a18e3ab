// What counts as junk on a Mac: a constant table of rules, and the headings they stand under.
#pragma once

#include "safety/JunkRule.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace brimlet {

/// All rules. The order is fixed and is the one in which the safety policy tries them: earlier rows win.
/// Any thread; the rules live as long as the program.
std::span<const JunkRule> junkCatalogue();

/// The rule of this id, or null.
const JunkRule* junkRule(std::string_view id);

/// All headings in display order.
inline constexpr std::array<JunkGroup, 6> allJunkGroups = {
    JunkGroup::system,    JunkGroup::trash,   JunkGroup::mail,
    JunkGroup::developer, JunkGroup::devices, JunkGroup::downloads,
};

/// How a heading presents itself.
struct JunkGroupLook {
    std::string_view caseName; ///< stable identifier for JSON
    std::string_view title;    ///< English text, key of the translation look-up
    std::string_view symbol;   ///< name in the icon table
};

const JunkGroupLook& look(JunkGroup group);

} // namespace brimlet
