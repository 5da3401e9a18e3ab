#pragma once

#include "safety/JunkRule.h"

namespace brimlet::test {

/// A rule without limits, for tests that need a catalogue of their own.
inline JunkRule madeUpRule(std::string_view id, std::string_view base) {
    JunkRule rule;
    rule.id = id;
    rule.title = id;
    rule.explanation = id;
    rule.base = base;
    return rule;
}

} // namespace brimlet::test
