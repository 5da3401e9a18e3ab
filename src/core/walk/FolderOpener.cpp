#include "core/walk/FolderOpener.h"

#include <algorithm>
#include <vector>

namespace brimlet {

namespace {

/// Beyond the budget one folder in so many levels stays open, so that the way back down stays short in
/// chains of thousands of folders.
constexpr std::uint32_t levelsBetweenMarks = 32;

} // namespace

FolderOpener::FolderOpener()
    : m_budget(std::clamp<std::size_t>(descriptorLimit() / 4, 8, 512)) {}

OpenedDirectory FolderOpener::open(const Folder& folder) {
    if (folder.parent == nullptr)
        return openDirectory(folder.name.c_str(), OpenFor::listing);
    // An open parent stays open at least until this folder is.
    if (folder.parent->kept.isOpen())
        return openDirectory(folder.parent->kept, folder.name.c_str(), OpenFor::listing);
    OpenedDirectory parent = openAgain(*folder.parent);
    if (parent.outcome != OpenOutcome::opened)
        return parent;
    return openDirectory(parent.descriptor, folder.name.c_str(), OpenFor::listing);
}

OpenedDirectory FolderOpener::openAgain(const Folder& folder) {
    std::vector<const Folder*> way = {&folder};
    OpenedDirectory reached;
    {
        const std::lock_guard lock(m_mutex);
        while (!way.back()->kept.isOpen() && way.back()->parent != nullptr)
            way.push_back(way.back()->parent);
        if (way.back()->kept.isOpen())
            reached = duplicate(way.back()->kept);
        else
            reached = openDirectory(way.back()->name.c_str(), OpenFor::passing);
    }
    for (;;) {
        const Folder& expected = *way.back();
        way.pop_back();
        if (reached.outcome != OpenOutcome::opened)
            return reached;
        if (!isSameDirectory(reached.descriptor, expected.device, expected.inode))
            return {};
        if (way.empty())
            return reached;
        reached = openDirectory(reached.descriptor, way.back()->name.c_str(), OpenFor::passing);
    }
}

void FolderOpener::finishOpening(const Folder& folder) {
    Folder* const parent = folder.parent;
    if (parent == nullptr || parent->unopened.fetch_sub(1, std::memory_order_acq_rel) != 1)
        return;
    DirectoryDescriptor closing;
    const std::lock_guard lock(m_mutex);
    m_kept.erase(parent);
    closing = std::move(parent->kept);
}

void FolderOpener::keep(Folder& folder, DirectoryDescriptor descriptor) {
    const std::lock_guard lock(m_mutex);
    const std::size_t budget = folder.depth % levelsBetweenMarks == 0 ? 2 * m_budget : m_budget;
    if (m_kept.size() >= budget)
        return;
    folder.kept = std::move(descriptor);
    m_kept.insert(&folder);
}

void FolderOpener::closeAll() {
    const std::lock_guard lock(m_mutex);
    for (Folder* folder : m_kept)
        folder->kept.reset();
    m_budget = m_kept.size() / 2;
    m_kept.clear();
}

} // namespace brimlet
