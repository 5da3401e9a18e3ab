// The one judge of every path that may ever be deleted.
//
// A pure decision procedure over constant tables: it changes nothing and never fails. Immutable after
// construction; callable from any thread. The list of running applications is asked for at each call that
// needs it.
#pragma once

#include "safety/JunkRule.h"
#include "safety/Risk.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace brimlet {

class BundleReader;
class RunningApplications;

class SafetyPolicy {
public:
    /// homeFolder   absolute, without a trailing slash
    /// rules        the catalogue, in its order; must outlive the policy
    /// bundles, running  must outlive the policy
    SafetyPolicy(std::string homeFolder, std::span<const JunkRule> rules, const BundleReader& bundles,
                 const RunningApplications& running);
    ~SafetyPolicy();

    /// The verdict on an absolute path. Nothing but the data volume's prefix is normalised: no link is
    /// resolved, no trailing slash removed.
    SafetyVerdict verdict(std::string_view forPath) const;

    /// The rule that covers what lies under its folder, or null. The path is taken as it stands.
    const JunkRule* rule(std::string_view coveringPath) const;

private:
    struct Tables;
    std::unique_ptr<const Tables> m_tables;
};

} // namespace brimlet
