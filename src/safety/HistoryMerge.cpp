#include "safety/HistoryMerge.h"

#include <cstring>
#include <iterator>

namespace brimlet {

namespace {

double newestDate(const std::vector<HistoryEntry>& entries) {
    double newest = -1e300;
    for (const HistoryEntry& entry : entries)
        newest = std::max(newest, entry.date);
    return newest;
}

} // namespace

std::size_t UuidHash::operator()(const Uuid& uuid) const {
    std::uint64_t hash = 0; // random bits already
    std::memcpy(&hash, uuid.bytes.data(), sizeof hash);
    return hash;
}

void trimHistory(std::vector<HistoryEntry>& entries) {
    if (entries.size() > mostHistoryEntries)
        entries.resize(mostHistoryEntries);
}

std::vector<HistoryEntry> mergedHistory(const UuidSet& base, const std::vector<HistoryEntry>& ours,
                                        const std::vector<HistoryEntry>& theirs) {
    UuidSet inOurs;
    UuidSet inTheirs;
    UuidSet restored;
    for (const HistoryEntry& entry : ours)
        inOurs.insert(entry.id);
    for (const HistoryEntry& entry : theirs) {
        inTheirs.insert(entry.id);
        if (entry.restored)
            restored.insert(entry.id);
    }
    std::vector<HistoryEntry> added;
    std::vector<HistoryEntry> kept;
    for (HistoryEntry entry : ours) {
        entry.restored = entry.restored || restored.contains(entry.id);
        if (!base.contains(entry.id))
            added.push_back(std::move(entry));
        else if (inTheirs.contains(entry.id))
            kept.push_back(std::move(entry));
    }
    std::vector<HistoryEntry> foreign;
    for (const HistoryEntry& entry : theirs) {
        if (!base.contains(entry.id) && !inOurs.contains(entry.id))
            foreign.push_back(entry);
    }
    // Either side's new entries keep their order; the side that was active last comes first.
    std::vector<HistoryEntry> merged;
    const bool foreignFirst = newestDate(foreign) > newestDate(added);
    for (auto* part : {foreignFirst ? &foreign : &added, foreignFirst ? &added : &foreign, &kept})
        std::move(part->begin(), part->end(), std::back_inserter(merged));
    trimHistory(merged);
    return merged;
}

} // namespace brimlet
