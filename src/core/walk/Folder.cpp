#include "core/walk/Folder.h"

#include <vector>

namespace brimlet {

Folder::Folder(std::string_view folderName, Folder* parentFolder, const EntryStatus& status,
               const FolderTag& folderTag)
    : name(folderName)
    , parent(parentFolder)
    , device(status.device)
    , inode(status.inode)
    , depth(parentFolder != nullptr ? parentFolder->depth + 1 : 0)
    , tag(folderTag) {}

bool Folder::isInside(const EntryStatus& status) const {
    for (const Folder* folder = this; folder != nullptr; folder = folder->parent)
        if (folder->inode == status.inode && folder->device == status.device)
            return true;
    return false;
}

std::string Folder::path() const {
    std::vector<const Folder*> chain;
    for (const Folder* folder = this; folder != nullptr; folder = folder->parent)
        chain.push_back(folder);
    std::string result = chain.back()->name;
    for (auto it = chain.rbegin() + 1; it != chain.rend(); ++it) {
        if (!result.ends_with('/'))
            result += '/';
        result += (*it)->name;
    }
    return result;
}

Folder* Folder::newChild(std::string_view childName, const EntryStatus& status, const FolderTag& childTag) {
    m_users.fetch_add(1, std::memory_order_relaxed);
    unopened.fetch_add(1, std::memory_order_relaxed);
    return new Folder(childName, this, status, childTag);
}

void Folder::release(Folder* folder) {
    while (folder != nullptr && folder->m_users.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        Folder* const parent = folder->parent;
        delete folder;
        folder = parent;
    }
}

} // namespace brimlet
