// The open folders on the way down a tree of any depth, with a bounded number of descriptors.
//
// Only the deepest folders stay open. One that was closed is opened again through ".." of the folder below
// it, and only if that still leads to the very folder that was left: a folder that was moved away meanwhile
// ends the walk.
#pragma once

#include "platform/linux/Descriptor.h"

#include <deque>

namespace brimlet {

class FolderLadder {
public:
    /// calls   must outlive the ladder
    explicit FolderLadder(FileSystemCalls& calls)
        : m_calls(calls) {}

    bool empty() const { return m_rungs.empty(); }
    std::size_t depth() const { return m_rungs.size(); }

    /// The deepest folder; it is always open.
    int deepest() const { return m_rungs.back().folder.number(); }

    /// Goes down into an opened folder.
    void descend(Descriptor folder, const FileStatus& status);

    /// Goes up one folder. Gives 0, or a negative errno when the folder above can't be reached any more; the
    /// ladder is then empty.
    /// left    receives the folder that was left, still open
    int ascend(Descriptor* left = nullptr);

private:
    struct Rung {
        Descriptor folder;
        FileStatus status;
    };

    FileSystemCalls& m_calls;
    std::deque<Rung> m_rungs;
};

} // namespace brimlet
