#include "junk/JunkPlan.h"

#include "core/Paths.h"

namespace brimlet {

std::vector<PlanItem> planItems(const std::vector<ChosenJunk>& chosen, const ItemReview& review) {
    std::vector<std::string> paths;
    paths.reserve(chosen.size());
    for (const ChosenJunk& one : chosen)
        paths.push_back(one.item.path);
    std::vector<ReviewedItem> reviewed = review.review(paths);
    std::vector<PlanItem> items;
    items.reserve(chosen.size());
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        std::string name(lastPathComponent(paths[i]));
        items.push_back({std::move(paths[i]), std::move(name), chosen[i].item.size, chosen[i].removal,
                         std::move(reviewed[i].verdict), chosen[i].item.identity});
    }
    return items;
}

} // namespace brimlet
