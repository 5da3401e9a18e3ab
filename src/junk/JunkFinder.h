// What of the catalogue is on this disk now: for each rule the direct children of its folder that qualify,
// with what they really occupy. Reads the disk itself, needs no scan, and changes nothing.
//
// Immutable; callable from any thread. A rule whose folder is missing or can't be listed finds nothing.
#pragma once

#include "junk/JunkCatalogue.h"
#include "platform/EntryIdentity.h"
#include "safety/JunkRule.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

class AccessProbe;
class DirectoryLister;

/// One thing that can be removed. Its path is its identity.
struct JunkItem {
    std::string path;               ///< absolute, any bytes
    std::string_view ruleId;        ///< of the rule that found it
    std::int64_t size = 0;          ///< allocated bytes with everything in it, at least 1
    std::int64_t fileCount = 0;     ///< non-directory entries below and including it
    std::optional<double> modified; ///< seconds since 1970; empty where the system didn't tell
    std::optional<PlacedIdentity> identity = std::nullopt; ///< as it was listed; empty as above
    bool operator==(const JunkItem&) const = default;
};

/// A rule and what it found.
struct JunkFinding {
    JunkRule rule;
    std::vector<JunkItem> items; ///< largest first, never empty

    /// Allocated bytes of all items.
    std::int64_t total() const;
};

class JunkFinder {
public:
    /// The present time in seconds since 1970.
    using Clock = std::function<double()>;

    /// homeFolder     absolute, without a trailing slash
    /// lister, access must outlive the finder
    JunkFinder(std::string homeFolder, const JunkTables& tables, const DirectoryLister& lister,
               const AccessProbe& access, Clock now = systemTime);

    /// What the rules find, largest total first; rules that find nothing are left out. Without Full Disk
    /// Access the folders of other applications' containers are not tried. Blocks on the disk; works with a
    /// bounded number of threads, all joined at the return.
    /// stop  looked at before each folder; once set, what is given is worthless
    std::vector<JunkFinding> scan(std::span<const JunkRule> rules, const std::stop_token& stop = {}) const;

    /// What one rule finds, or empty; Full Disk Access isn't asked for.
    std::optional<JunkFinding> scanRule(const JunkRule& rule) const;

    static double systemTime();

private:
    struct Candidate;

    std::vector<Candidate> candidates(const JunkRule& rule) const;
    std::vector<JunkFinding> findings(const std::vector<const JunkRule*>& rules,
                                      const std::stop_token& stop) const;

    std::string m_homeFolder;
    JunkTables m_tables;
    const DirectoryLister& m_lister;
    const AccessProbe& m_access;
    Clock m_now;
};

} // namespace brimlet
