// What the safety policy and the junk finder know of one kind of junk. The catalogue of all rules stands in
// junk/.
#pragma once

#include "safety/Risk.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// How an item is removed.
enum class Removal : std::uint8_t {
    permanent = 0, ///< deleted at once
    trash = 1,     ///< moved to the Trash
};

/// "permanent", "trash": the stable identifier for JSON.
std::string_view caseName(Removal removal);

/// The heading under which a rule appears, in display order.
enum class JunkGroup : std::uint8_t { system, trash, mail, developer, devices, downloads };

/// One folder whose direct children may be removed. Texts are English keys of the translation look-up.
struct JunkRule {
    std::string_view id; ///< stable, unique
    JunkGroup group = JunkGroup::system;
    std::string_view title;
    std::string_view explanation; ///< doubles as the verdict's reason for what lies under the rule
    Risk risk = Risk::review;
    std::string_view base; ///< absolute, or relative to the home folder; the folder itself is never an item
    Removal removal = Removal::trash;
    bool inSmartClean = false; ///< ticked by default in Quick Clean
    std::optional<std::vector<std::string_view>> extensions =
        std::nullopt;                                 ///< lower-case; only children with one of these count
    std::optional<int> minAgeDays = std::nullopt;     ///< only children not modified for that long count
    std::vector<std::string_view> excludedNames = {}; ///< children that never count, and that no rule covers

    /// The rule's folder as an absolute path without a trailing slash.
    std::string resolvedBase(std::string_view homeFolder) const;

    /// Whether a child of this name never counts.
    bool excludes(std::string_view childName) const;

    /// Whether a child of this name has one of the extensions, letter case ignored; true where none are asked
    /// for.
    bool admitsExtensionOf(std::string_view childName) const;
};

} // namespace brimlet
