// The safety policy as a plain list of questions, each over the whole string, nothing prepared. Slow and easy
// to check by eye; the policy proper must agree with it on every path.
#pragma once

#include "platform/BundleReader.h"
#include "platform/RunningApplications.h"
#include "safety/JunkRule.h"

#include <span>
#include <string>

namespace brimlet::test {

struct PlainSafetyPolicy {
    std::string home;
    std::span<const JunkRule> rules;
    const BundleReader& bundles;
    const RunningApplications& running;

    SafetyVerdict verdict(const std::string& rawPath) const;
    const JunkRule* rule(const std::string& path) const;

private:
    std::string baseOf(const JunkRule& rule) const;
    SafetyVerdict applicationVerdict(const std::string& rawPath) const;
    SafetyVerdict remainingVerdict(const std::string& path) const;
};

} // namespace brimlet::test
