#include "safety/PathJudge.h"

#include "core/Paths.h"
#include "safety/SafetyPolicy.h"

#include <utility>

namespace brimlet {

PathJudge judgeByBothHomes(const SafetyPolicy& policy, std::string homeFolder, std::string realHomeFolder) {
    return [&policy, home = std::move(homeFolder), real = std::move(realHomeFolder)](std::string_view path) {
        SafetyVerdict verdict = policy.verdict(path);
        if (real == home || (path != real && !isBelow(path, real)))
            return verdict;
        return verdict.risk == Risk::protected_
                   ? verdict
                   : policy.verdict(home + std::string(path.substr(real.size())));
    };
}

} // namespace brimlet
