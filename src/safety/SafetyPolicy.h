// The one judge of every path that may ever be deleted.
//
// A pure decision procedure over constant tables: it changes nothing and never fails. Immutable after
// construction; callable from any thread. The list of running applications is asked for at each call that
// needs it.
#pragma once

#include "safety/JunkRule.h"
#include "safety/Risk.h"
#include "safety/SafetyTables.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

class BundleReader;
class RunningApplications;

/// Whether a protected place covers more than what bears its very name.
enum class PlaceReach { itself, family };

/// A place that the policy protects by its path. A family also covers what begins with its path and a dot.
struct ProtectedPlace {
    std::string path; ///< absolute
    PlaceReach reach = PlaceReach::itself;
};

class SafetyPolicy {
public:
    /// homeFolder   absolute, without a trailing slash
    /// rules        the catalogue, in its order
    /// What the tables refer to, the rules, bundles and running must outlive the policy.
    SafetyPolicy(std::string homeFolder, const SafetyTables& tables, std::span<const JunkRule> rules,
                 const BundleReader& bundles, const RunningApplications& running);
    ~SafetyPolicy();

    /// The verdict on an absolute path. Nothing but the data volume's prefix is normalised: no link is
    /// resolved, no trailing slash removed.
    SafetyVerdict verdict(std::string_view forPath) const;

    /// The rule that covers what lies under its folder, or null. The path is taken as it stands.
    const JunkRule* rule(std::string_view coveringPath) const;

    /// All places of the tables that are protected, whether they exist or not. What is told by a name alone,
    /// as packages are, is not among them.
    std::vector<ProtectedPlace> protectedPlaces() const;

private:
    struct Places;
    std::unique_ptr<const Places> m_places;
};

} // namespace brimlet
