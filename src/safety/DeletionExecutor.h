// Carries out deletion requests: the one way by which a file leaves its place.
//
// Invariants:
// 1. Every request is judged afresh, by its path as given and by the path without links that it leads to;
//    what either verdict protects is not touched, nor what the second finds riskier than what was accepted.
//    Neither is what holds a protected place. It is judged again before each step that the journal is told
//    of, so also after a long copy. The folder that was judged is the folder that is worked in.
// 2. What goes is the thing that was reviewed: a request carries its identity and that of its folder, and
// what
//    is another by now stays (see FileRemoval).
// 3. Requests are done one at a time, in order, and none ends the run: each is in `deletedPaths`, in
//    `failures` or in `skippedProtected`. One whose copy is in the Trash while part of the original would not
//    go is in the first two. What went of an item that could not go as a whole counts in `freed`.
// 4. Nothing is moved to the Trash before the way back is on the disk (RunJournal). Forecasts of many
// requests
//    are noted together; one that has come out different is noted again, alone, before anything is renamed.
// 5. A stopped run ends after the entry at hand, also within a large folder; the rest has its name back.
// Blocks on the disk; called off the interface thread. Several runs may go on side by side.
#pragma once

#include "platform/FileRemoval.h"
#include "platform/RecordStore.h"
#include "safety/DeletionRecords.h"
#include "safety/PathJudge.h"
#include "safety/ProtectedPlaces.h"
#include "safety/RequestJudge.h"
#include "safety/RunJournal.h"
#include "safety/SafetyTables.h"

#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <vector>

namespace brimlet {

/// What a run gives back: its report, one new entry for each of `deletedPaths` in the same order, and the
/// journal that DeletionHistory::record ends. If it never gets there, the next start completes the entries.
struct ExecutedRun {
    DeletionReport report;
    std::vector<HistoryEntry> entries;
    std::vector<HistoryEntry>
        parts; ///< of what went for good of items that partly stayed, for the history too
    std::shared_ptr<RunJournal> journal;
};

class DeletionExecutor {
public:
    /// tables, removal, store   must outlive the executor; the store also every run
    /// places                  asked once for each run
    DeletionExecutor(const SafetyTables& tables, FileRemoval& removal, RecordStore& store, PathJudge judge,
                     PlacesSource places);

    /// stop   ends the run early: what has not begun by then stays as it is and is in `failures`
    ExecutedRun execute(const std::vector<DeletionRequest>& requests, const std::stop_token& stop = {});

    /// The sentence for the user when the file system refused.
    static std::string reason(const PlatformError& forError, const SafetyTables& tables);

private:
    struct Step;

    Result<std::unique_ptr<PinnedEntry>> pin(const DeletionRequest& request, const PinnedEntry* neighbour);
    std::vector<Step> nextBatch(std::span<const DeletionRequest> requests, const RequestJudge& judge,
                                RunJournal& journal);
    void carryOut(Step& step, const RequestJudge& judge, std::unique_ptr<PinnedEntry>& last, ExecutedRun& run,
                  const std::stop_token& stop);
    static Failure begin(Step& step, const PlannedMove& move, RunJournal& journal);
    std::optional<std::string> moveToTrash(const Step& step, const PinnedEntry& pinned,
                                           const BeforeMove& before, ExecutedRun& run,
                                           const std::stop_token& stop);
    std::optional<std::string> removeForGood(const Step& step, const PinnedEntry& pinned,
                                             const BeforeMove& before, ExecutedRun& run,
                                             const std::stop_token& stop);

    const SafetyTables& m_tables;
    FileRemoval& m_removal;
    RecordStore& m_store;
    PathJudge m_judge;
    PlacesSource m_places;
};

} // namespace brimlet
