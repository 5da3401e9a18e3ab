#include "junk/JunkFinder.h"

#include "core/walk/MeasureTree.h"
#include "core/walk/ParallelFor.h"
#include "platform/AccessProbe.h"
#include "platform/DirectoryLister.h"
#include "platform/ScratchName.h"

#include <algorithm>
#include <chrono>
#include <numeric>
#include <utility>

namespace brimlet {

namespace {

constexpr std::string_view trashRule = "trash";
constexpr double secondsPerDay = 86'400;

/// Whether a rule takes a child for what its name and age say. `cutOff` in seconds since 1970.
bool qualifies(const JunkTables& tables, const JunkRule& rule, const ListedChild& child,
               std::optional<double> cutOff) {
    if (rule.excludes(child.name) || isScratchName(child.name)) // a removal's own
        return false;
    if (child.name == tables.folderSettings && rule.id != trashRule)
        return false;
    if (!rule.admitsExtensionOf(child.name))
        return false;
    return !cutOff || !child.modified || *child.modified <= *cutOff;
}

} // namespace

std::int64_t JunkFinding::total() const {
    return std::accumulate(items.begin(), items.end(), std::int64_t{0},
                           [](std::int64_t sum, const JunkItem& item) { return sum + item.size; });
}

JunkFinder::JunkFinder(std::string homeFolder, const JunkTables& tables, const DirectoryLister& lister,
                       const AccessProbe& access, Clock now)
    : m_homeFolder(std::move(homeFolder))
    , m_tables(tables)
    , m_lister(lister)
    , m_access(access)
    , m_now(std::move(now)) {}

double JunkFinder::systemTime() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

std::vector<JunkFinding> JunkFinder::scan(std::span<const JunkRule> rules,
                                          const std::stop_token& stop) const {
    const bool mayReadContainers = m_access.hasFullDiskAccess();
    std::vector<const JunkRule*> tried;
    for (const JunkRule& rule : rules) {
        if (mayReadContainers || !rule.base.starts_with(m_tables.guardedBases))
            tried.push_back(&rule);
    }
    std::vector<JunkFinding> found = findings(tried, stop);
    std::ranges::stable_sort(found, std::greater(), &JunkFinding::total);
    return found;
}

std::optional<JunkFinding> JunkFinder::scanRule(const JunkRule& rule) const {
    std::vector<JunkFinding> found = findings({&rule}, {});
    if (found.empty())
        return std::nullopt;
    return std::move(found.front());
}

struct JunkFinder::Candidate {
    JunkItem item;
    bool isMeasured;
};

/// The children of a rule's folder that qualify. The listing has told what files occupy; folders are still to
/// be measured.
std::vector<JunkFinder::Candidate> JunkFinder::candidates(const JunkRule& rule) const {
    const std::string folder = rule.resolvedBase(m_homeFolder);
    const auto children = m_lister.children(folder);
    if (!children)
        return {};
    std::optional<double> cutOff;
    if (rule.minAgeDays)
        cutOff = m_now() - *rule.minAgeDays * secondsPerDay;
    std::vector<Candidate> qualified;
    for (const ListedChild& child : *children) {
        if (!qualifies(m_tables, rule, child, cutOff))
            continue;
        const bool isFile = child.fileBytes.has_value();
        qualified.push_back({{folder + "/" + child.name, rule.id, child.fileBytes.value_or(0), isFile ? 1 : 0,
                              child.modified, child.identity},
                             isFile});
    }
    return qualified;
}

/// All rules are listed side by side, then all their candidates measured side by side, so that one rule with
/// many items keeps every thread busy. Keeps the order of the rules.
std::vector<JunkFinding> JunkFinder::findings(const std::vector<const JunkRule*>& rules,
                                              const std::stop_token& stop) const {
    std::vector<std::vector<Candidate>> byRule(rules.size());
    parallelFor(rules.size(), diskThreads(), [&](std::size_t i) {
        if (!stop.stop_requested())
            byRule[i] = candidates(*rules[i]);
    });

    std::vector<JunkItem*> unmeasured;
    for (std::vector<Candidate>& qualified : byRule) {
        for (Candidate& candidate : qualified) {
            if (!candidate.isMeasured)
                unmeasured.push_back(&candidate.item);
        }
    }
    parallelFor(unmeasured.size(), diskThreads(), [&](std::size_t i) {
        if (stop.stop_requested())
            return;
        const TreeMeasure measure = measureTree(unmeasured[i]->path);
        unmeasured[i]->size = measure.bytes;
        unmeasured[i]->fileCount = measure.files;
    });

    std::vector<JunkFinding> found;
    for (std::size_t i = 0; i < rules.size(); ++i) {
        std::vector<JunkItem> items;
        for (Candidate& candidate : byRule[i]) {
            if (candidate.item.size >= 1)
                items.push_back(std::move(candidate.item));
        }
        if (items.empty())
            continue;
        std::ranges::stable_sort(items, std::greater(), &JunkItem::size);
        found.push_back({*rules[i], std::move(items)});
    }
    return found;
}

} // namespace brimlet
