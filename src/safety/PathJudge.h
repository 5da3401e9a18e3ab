// What the deletion engine needs of the safety policy: a verdict on a path.
#pragma once

#include "safety/Risk.h"

#include <functional>
#include <string>
#include <string_view>

namespace brimlet {

/// Gives the verdict on an absolute path. Asked from any thread; never fails.
using PathJudge = std::function<SafetyVerdict(std::string_view path)>;

class SafetyPolicy;

/// A judge for a home folder that has two paths: as it is called, which the policy knows, and without links.
/// A path below the second gets the verdict of the first, unless it is protected by itself: the policy knows
/// nothing else of what lies there. The policy must outlive it.
PathJudge judgeByBothHomes(const SafetyPolicy& policy, std::string homeFolder, std::string realHomeFolder);

} // namespace brimlet
