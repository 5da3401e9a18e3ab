#include "safety/ItemReview.h"

#include "platform/EntryLookup.h"

#include <utility>

namespace brimlet {

ItemReview::ItemReview(PathJudge judge, PlacesSource places, const EntryLookup& entries)
    : m_judge(std::move(judge))
    , m_places(std::move(places))
    , m_entries(entries) {}

std::vector<ReviewedItem> ItemReview::review(const std::vector<std::string>& paths) const {
    const ProtectedPlaces places = m_places();
    std::vector<ReviewedItem> items(paths.size());
    m_entries.findEach(paths, [&](std::size_t index, const std::optional<FoundEntry>& found) {
        items[index] = reviewOne(paths[index], found, places);
    });
    return items;
}

ReviewedItem ItemReview::reviewOne(const std::string& path, const std::optional<FoundEntry>& found,
                                   const ProtectedPlaces& places) const {
    ReviewedItem item{m_judge(path), std::nullopt};
    if (found)
        item.identity = found->identity;
    const bool leadsElsewhere = found && found->path != path;
    if (leadsElsewhere) {
        SafetyVerdict resolved = m_judge(found->path);
        if (resolved.risk > item.verdict.risk)
            item.verdict = std::move(resolved);
    }
    if (item.verdict.risk == Risk::protected_)
        return item;
    std::optional<std::string> held = places.reasonToKeep(path, item.identity);
    if (!held && leadsElsewhere)
        held = places.reasonToKeep(found->path, item.identity);
    if (held)
        item.verdict = {Risk::protected_, std::move(*held)};
    return item;
}

} // namespace brimlet
