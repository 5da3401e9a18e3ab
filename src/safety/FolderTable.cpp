#include "safety/FolderTable.h"

#include <algorithm>

namespace brimlet {

namespace {

/// Takes the first component and its slash off `rest`.
std::string_view takeComponent(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string_view component = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return component;
}

} // namespace

const FolderTable::Folder* FolderTable::Folder::child(std::string_view childName) const {
    const auto found = std::ranges::find(children, childName, &Folder::name);
    return found != children.end() ? &*found : nullptr;
}

std::optional<std::size_t> FolderTable::Folder::firstRow() const {
    std::optional<std::size_t> first;
    if (!rows.empty())
        first = rows.front();
    for (const Folder& below : children) {
        if (const auto row = below.firstRow())
            first = std::min(first.value_or(*row), *row);
    }
    return first;
}

void FolderTable::add(std::string_view folder) {
    Folder* place = &m_root;
    while (!folder.empty()) {
        const std::string_view component = takeComponent(folder);
        const auto known = std::ranges::find(place->children, component, &Folder::name);
        place = known != place->children.end()
                    ? &*known
                    : &place->children.emplace_back(Folder{std::string(component), {}, {}});
    }
    place->rows.push_back(m_rowCount++);
}

template <typename Visit>
void FolderTable::descend(std::string_view path, const Visit& visit) const {
    const bool endsInSlash = path.ends_with('/');
    const Folder* folder = &m_root;
    for (std::string_view rest = path; !rest.empty();) {
        folder = folder->child(takeComponent(rest));
        if (folder == nullptr)
            return;
        visit(*folder, rest.empty() && !endsInSlash ? Relation::same : Relation::above);
    }
}

bool FolderTable::contains(std::string_view path) const {
    bool found = false;
    descend(path, [&](const Folder& folder, Relation relation) {
        found = relation == Relation::same && !folder.rows.empty();
    });
    return found;
}

std::optional<std::size_t> FolderTable::firstCovering(std::string_view path) const {
    std::optional<std::size_t> first;
    descend(path, [&](const Folder& folder, Relation) {
        if (!folder.rows.empty())
            first = std::min(first.value_or(folder.rows.front()), folder.rows.front());
    });
    return first;
}

std::optional<std::size_t> FolderTable::firstWithin(std::string_view path) const {
    const Folder* folder = &m_root;
    for (std::string_view rest = path; folder != nullptr && !rest.empty();)
        folder = folder->child(takeComponent(rest));
    return folder != nullptr ? folder->firstRow() : std::nullopt;
}

std::vector<std::size_t> FolderTable::rowsAbove(std::string_view path) const {
    std::vector<std::size_t> rows;
    descend(path, [&](const Folder& folder, Relation relation) {
        if (relation == Relation::above)
            rows.insert(rows.end(), folder.rows.begin(), folder.rows.end());
    });
    std::ranges::sort(rows);
    return rows;
}

} // namespace brimlet
