#include "junk/JunkPlan.h"

#include "core/Paths.h"

namespace brimlet {

std::vector<PlanItem> planItems(const std::vector<ChosenJunk>& chosen, const SafetyPolicy& policy) {
    std::vector<PlanItem> items;
    items.reserve(chosen.size());
    for (const ChosenJunk& one : chosen) {
        items.push_back({one.item.path, std::string(lastPathComponent(one.item.path)), one.item.size,
                         one.removal, policy.verdict(one.item.path)});
    }
    return items;
}

} // namespace brimlet
