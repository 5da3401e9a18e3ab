#include "junk/JunkCatalogue.h"

#include <algorithm>
#include <array>

namespace brimlet {

namespace {

constexpr std::array<JunkGroupLook, 6> groupLooks = {{
    {"system", "System Junk", "sparkles"},
    {"trash", "Trash", "trash.fill"},
    {"mail", "Mail", "paperclip"},
    {"developer", "Developer", "hammer.fill"},
    {"devices", "iPhone & iPad", "iphone"},
    {"downloads", "Downloads", "arrow.down.circle.fill"},
}};

} // namespace

const JunkRule* junkRule(std::span<const JunkRule> rules, std::string_view id) {
    const auto rule = std::ranges::find(rules, id, &JunkRule::id);
    return rule != rules.end() ? &*rule : nullptr;
}

const JunkGroupLook& look(JunkGroup group) {
    return groupLooks[static_cast<std::size_t>(group)];
}

} // namespace brimlet
