// From chosen junk to the rows of a plan.
#pragma once

#include "junk/JunkFinder.h"
#include "safety/DeletionRecords.h"
#include "safety/SafetyPolicy.h"

#include <vector>

namespace brimlet {

/// An item with the way in which its rule removes it.
struct ChosenJunk {
    JunkItem item;
    Removal removal = Removal::trash;
};

/// A plan row for each item, in the order given, judged now. Any thread; asks the machine for the running
/// applications, so many items take their time.
std::vector<PlanItem> planItems(const std::vector<ChosenJunk>& chosen, const SafetyPolicy& policy);

} // namespace brimlet
