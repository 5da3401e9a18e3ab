// Junk lists that no disk has to hold.
#pragma once

#include "junk/JunkFinder.h"
#include "support/CatalogueRule.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace brimlet::test {

/// A finding of a rule of the catalogue. Items are given as file name and size and lie in "/junk/<rule>/".
inline JunkFinding madeUpFinding(std::string_view ruleId,
                                 const std::vector<std::pair<std::string, std::int64_t>>& items) {
    JunkFinding finding{macRule(ruleId), {}};
    for (const auto& [name, size] : items)
        finding.items.push_back({"/junk/" + std::string(ruleId) + "/" + name, finding.rule.id, size, 1, {}});
    return finding;
}

/// A finding with `count` items of falling sizes, the last of one byte.
inline JunkFinding longFinding(std::string_view ruleId, std::int64_t count) {
    std::vector<std::pair<std::string, std::int64_t>> items;
    for (std::int64_t i = 0; i < count; ++i)
        items.emplace_back("item " + std::to_string(i), count - i);
    return madeUpFinding(ruleId, items);
}

} // namespace brimlet::test
