// What the deletion engine needs of the safety policy: a verdict on a path.
#pragma once

#include "safety/Risk.h"

#include <functional>
#include <string_view>

namespace brimlet {

/// Gives the verdict on an absolute path. Asked from any thread; never fails.
using PathJudge = std::function<SafetyVerdict(std::string_view path)>;

} // namespace brimlet
