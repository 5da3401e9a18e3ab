// Keeps a scan's tree right after deletions and restores: the nodes are found in the background and marked in
// pieces that hold up no frame. One update after the other, in the order of the calls. Waits for no disk.
// Main thread.
#pragma once

#include "app/background/BackgroundWork.h"
#include "app/background/PathUpdates.h"
#include "app/background/SlicedWork.h"
#include "core/ScanResult.h"

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace brimlet {

class TreeUpdates {
public:
    /// scan   null where there is no tree to be brought up to date
    /// then   called when all is marked, also without a tree
    void markDeleted(std::shared_ptr<ScanResult> scan, SharedPaths paths, std::function<void()> then);
    void markRestored(std::shared_ptr<ScanResult> scan, SharedPaths paths, std::function<void()> then);

private:
    using Mark = void (ScanResult::*)(std::span<FileNode* const>);

    struct Update {
        Mark mark;
        std::shared_ptr<ScanResult> scan;
        SharedPaths paths;
        std::function<void()> then;
    };

    void add(Update update);
    void begin();
    void markAll(std::vector<FileNode*> nodes);
    void finishFirst();

    std::deque<Update> m_updates; ///< the first is at work
    SlicedWork m_marking;
    BackgroundWork m_work{1}; // Goes first.
};

} // namespace brimlet
