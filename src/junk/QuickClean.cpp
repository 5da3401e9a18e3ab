#include "junk/QuickClean.h"

#include <algorithm>

namespace brimlet {

namespace {

constexpr std::array<std::string_view, 5> phaseNames = {"idle", "scanning", "review", "cleaning", "done"};

} // namespace

std::string_view caseName(SmartPhase phase) {
    return phaseNames.at(static_cast<std::size_t>(phase));
}

std::optional<SmartPhase> smartPhaseFromCaseName(std::string_view name) {
    const auto* found = std::ranges::find(phaseNames, name);
    if (found == phaseNames.end())
        return std::nullopt;
    return static_cast<SmartPhase>(found - phaseNames.begin());
}

std::array<StepState, 3> stepStates(SmartPhase phase) {
    using enum StepState;
    switch (phase) {
    case SmartPhase::idle:
    case SmartPhase::scanning:
        return {present, ahead, ahead};
    case SmartPhase::review:
        return {finished, present, ahead};
    case SmartPhase::cleaning:
        return {finished, finished, present};
    case SmartPhase::done:
        break;
    }
    return {finished, finished, finished};
}

RuleSelection defaultSelection(std::span<const JunkRule> rules) {
    RuleSelection selection;
    for (const JunkRule& rule : rules) {
        if (rule.inSmartClean)
            selection.emplace(rule.id);
    }
    return selection;
}

std::int64_t selectedSize(std::span<const JunkFinding> junk, const RuleSelection& selection) {
    std::int64_t sum = 0;
    for (const JunkFinding& finding : junk) {
        if (selection.contains(finding.rule.id))
            sum += finding.total();
    }
    return sum;
}

std::vector<DeletionRequest> cleanRequests(std::span<const JunkFinding> junk,
                                           const RuleSelection& selection) {
    std::vector<DeletionRequest> requests;
    for (const JunkFinding& finding : junk) {
        if (!selection.contains(finding.rule.id))
            continue;
        for (const JunkItem& item : finding.items)
            requests.push_back({Uuid::random(), item.path, item.size, finding.rule.removal, finding.rule.risk,
                                item.identity});
    }
    return requests;
}

} // namespace brimlet
