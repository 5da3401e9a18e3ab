// From chosen junk to the rows of a plan.
#pragma once

#include "junk/JunkFinder.h"
#include "safety/DeletionRecords.h"
#include "safety/ItemReview.h"

#include <vector>

namespace brimlet {

/// An item with the way in which its rule removes it.
struct ChosenJunk {
    JunkItem item;
    Removal removal = Removal::trash;
};

/// A plan row for each item, in the order given, judged now; what it is was told by the search that found it.
/// Any thread; blocks on the disk and asks the machine for the running applications, so many items take their
/// time.
std::vector<PlanItem> planItems(const std::vector<ChosenJunk>& chosen, const ItemReview& review);

} // namespace brimlet
