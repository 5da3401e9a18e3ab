// Carries out deletion requests: the one way by which a file leaves its place.
//
// Invariants:
// 1. Every request is judged afresh, by its path as given and by the path without links that it leads to;
//    what either verdict protects is not touched. It is judged again before each step that the journal is
//    told of, so also after a long copy. The folder that was judged is the folder that is worked in.
// 2. Requests are done one at a time, in order, and none ends the run: each is in `deletedPaths`, in
//    `failures` or in `skippedProtected`. One whose copy is in the Trash while part of the original would not
//    go is in the first two.
// 3. Nothing is moved to the Trash before the way back is on the disk (RunJournal).
// Blocks on the disk; called off the interface thread. Several runs may go on side by side.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/DeletionRecords.h"
#include "safety/PathJudge.h"
#include "safety/RunJournal.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brimlet {

/// What a run gives back: its report, one new entry for each of `deletedPaths` in the same order, and the
/// journal that DeletionHistory::record ends. If it never gets there, the next start completes the entries.
struct ExecutedRun {
    DeletionReport report;
    std::vector<HistoryEntry> entries;
    std::shared_ptr<RunJournal> journal;
};

class DeletionExecutor {
public:
    /// removal, store   must outlive the executor; the store also every run
    DeletionExecutor(FileRemoval& removal, RecordStore& store, PathJudge judge);

    ExecutedRun execute(const std::vector<DeletionRequest>& requests);

    /// The sentence for the user when the file system refused.
    static std::string reason(const PlatformError& forError);

private:
    /// Why a path may not be touched, or nothing.
    using Protection = std::optional<std::string>;

    Protection protection(const std::string& path) const;
    void carryOut(const DeletionRequest& request, ExecutedRun& run);
    Failure perform(const DeletionRequest& request, const PinnedEntry& pinned, ExecutedRun& run,
                    const BeforeMove& judge);

    FileRemoval& m_removal;
    RecordStore& m_store;
    PathJudge m_judge;
};

} // namespace brimlet
