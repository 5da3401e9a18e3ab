#include "core/FolderRules.h"

#include "core/Paths.h"

#include <algorithm>
#include <cassert>

namespace brimlet {

namespace {

bool holds(std::span<const std::string_view> range, std::string_view text) {
    return std::ranges::find(range, text) != range.end();
}

/// Whether everything below a folder of this bucket stays in it.
bool isFirm(std::optional<StorageBucket> inherited) {
    return inherited && *inherited != StorageBucket::appData && *inherited != StorageBucket::system &&
           *inherited != StorageBucket::other;
}

} // namespace

FolderRules::FolderRules(const FolderTables& tables)
    : m_tables(tables) {
    for (const BucketPlace& row : tables.bucketPlaces)
        add(row);
}

void FolderRules::add(const BucketPlace& row) {
    Place* at = &m_root;
    const std::vector<std::string_view> components = pathComponents(row.path);
    assert(!components.empty() && components.size() <= mostPathComponents);
    m_depth = std::max(m_depth, components.size());
    for (std::string_view component : components) {
        const bool isPrefix = component.ends_with('*');
        if (isPrefix)
            component.remove_suffix(1);
        const auto found = std::ranges::find_if(at->below, [&](const Place& place) {
            return place.name == component && place.isPrefix == isPrefix;
        });
        if (found != at->below.end()) {
            at = &*found;
            continue;
        }
        // Whole names first, then longer beginnings before shorter ones.
        const auto next = std::ranges::find_if(at->below, [&](const Place& place) {
            return place.isPrefix && (!isPrefix || place.name.size() < component.size());
        });
        at = &*at->below.insert(next, Place{component, isPrefix, nullptr, {}});
    }
    at->row = &row;
}

const BucketPlace* FolderRules::place(std::span<const std::string_view> components) const {
    const BucketPlace* row = nullptr;
    const Place* at = &m_root;
    for (const std::string_view component : components) {
        const auto next = std::ranges::find_if(at->below, [&](const Place& place) {
            return place.isPrefix ? component.starts_with(place.name) : component == place.name;
        });
        if (next == at->below.end())
            break;
        at = &*next;
        if (at->row != nullptr)
            row = at->row;
    }
    return row;
}

std::optional<StorageBucket> FolderRules::bucket(std::string_view name,
                                                 std::span<const std::string_view> components,
                                                 std::optional<StorageBucket> inherited) const {
    for (const BucketSuffix& row : m_tables.bucketSuffixes)
        if (name.ends_with(row.suffix))
            return row.bucket;
    if (isFirm(inherited))
        return inherited;
    if (holds(m_tables.developerNames, name))
        return StorageBucket::developer;
    const BucketPlace* row = place(components);
    switch (row != nullptr ? row->source : BucketSource::parent) {
    case BucketSource::place:
        return row->bucket;
    case BucketSource::none:
        return std::nullopt;
    case BucketSource::parent:
        return inherited;
    case BucketSource::parentIfAppData:
        break;
    }
    return inherited == StorageBucket::appData ? inherited : std::nullopt;
}

bool FolderRules::isPackage(std::string_view name) const {
    const std::size_t dot = name.rfind('.');
    return dot != std::string_view::npos && holds(m_tables.packageExtensions, name.substr(dot + 1));
}

FileKind FolderRules::kind(std::string_view name) const {
    return !m_tables.applicationSuffix.empty() && name.ends_with(m_tables.applicationSuffix)
               ? FileKind::application
               : FileKind::other;
}

} // namespace brimlet
