// What Quick Clean ticks, counts and hands to the executor. Pure functions over values; any thread.
#pragma once

#include "junk/JunkFinder.h"
#include "safety/DeletionRecords.h"

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// Where Quick Clean stands.
enum class SmartPhase : std::uint8_t { idle, scanning, review, cleaning, done };

/// "idle", "scanning", "review", "cleaning", "done": how the screens know a phase.
std::string_view caseName(SmartPhase phase);

std::optional<SmartPhase> smartPhaseFromCaseName(std::string_view name);

enum class StepState : std::uint8_t { ahead, present, finished };

/// The states of the steps "Scan", "Review" and "Clean" in a phase.
std::array<StepState, 3> stepStates(SmartPhase phase);

/// Rules by their id.
using RuleSelection = std::set<std::string, std::less<>>;

/// The rules that are ticked before the user has touched anything.
RuleSelection defaultSelection(std::span<const JunkRule> rules);

/// Bytes of all findings whose rule is selected.
std::int64_t selectedSize(std::span<const JunkFinding> junk, const RuleSelection& selection);

/// One request for each item of the selected rules, in the order of `junk`, removed as its rule says.
std::vector<DeletionRequest> cleanRequests(std::span<const JunkFinding> junk, const RuleSelection& selection);

} // namespace brimlet
