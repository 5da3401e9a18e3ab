// Opens the folders of one walk, relative to their parents and within a budget of descriptors.
//
// A folder stays open while folders below it wait, so that no path is resolved twice. Where that would take
// too many descriptors it is closed, and reached again from the nearest ancestor that is still open; every
// step of that way must lead to the directory that was met there before, so that nobody can turn the walk
// aside meanwhile. Any thread of the walk, except where told.
#pragma once

#include "core/walk/Folder.h"

#include <cstddef>
#include <mutex>
#include <unordered_set>

namespace brimlet {

class FolderOpener {
public:
    FolderOpener();

    /// Opens a folder for listing. Called once for each folder, but for calls that ran out of descriptors.
    OpenedDirectory open(const Folder& folder);

    /// Tells that the folder will not be opened again, which may let its parent close.
    void finishOpening(const Folder& folder);

    /// Takes over the descriptor of a folder that has been read and has folders below it. Before those are
    /// handed to other threads.
    void keep(Folder& folder, DirectoryDescriptor descriptor);

    /// Closes every folder and keeps fewer from now on. Only while no other thread works on the walk.
    void closeAll();

private:
    OpenedDirectory openAgain(const Folder& folder);

    std::mutex m_mutex; ///< guards `kept` of a folder against a thread that comes from further below
    std::unordered_set<Folder*> m_kept;
    std::size_t m_budget;
};

} // namespace brimlet
