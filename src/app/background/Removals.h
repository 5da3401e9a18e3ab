// The one place from which removals and restores are begun: one after the other, in the order of asking, on a
// thread of their own that no search can hold up.
//
// The history belongs to that thread. What the rest of the application sees of it is a copy that each step
// hands over. Main thread; nothing here looks at the disk.
#pragma once

#include "app/background/BackgroundWork.h"
#include "app/background/WorkGate.h"
#include "safety/DeletionExecutor.h"
#include "safety/DeletionRecords.h"
#include "safety/history/DeletionHistory.h"
#include "safety/HistoryMerge.h"

#include <functional>
#include <memory>
#include <QObject>
#include <stop_token>
#include <string>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// Carries requests out on the calling thread, as DeletionExecutor::execute does.
using DeletionRun =
    std::function<ExecutedRun(const std::vector<DeletionRequest>&, const std::stop_token& stop)>;

/// Gives the history, on the thread that is to use it. Called once; completes what was interrupted.
using HistoryOpening = std::function<DeletionHistory&()>;

/// What a run did. Read on the main thread, put together before.
struct FinishedRemoval {
    DeletionReport report;
    std::vector<DeletionFailure> failures; ///< what the system and what the policy refused
    std::vector<HistoryEntry> undoable;    ///< what can be taken back
    std::unordered_set<std::string> gone;
};
using FinishedRemovalPtr = std::shared_ptr<const FinishedRemoval>;

/// What was put back.
struct PutBack {
    std::unordered_set<std::string> paths;
    std::vector<DeletionFailure> remarks; ///< on what came back all the same
};
using PutBackPtr = std::shared_ptr<const PutBack>;

class Removals : public QObject {
    Q_OBJECT

public:
    using Entries = std::vector<HistoryEntry>;
    using Requests = std::vector<DeletionRequest>;

    /// Opens the history in the background.
    Removals(DeletionRun run, HistoryOpening openHistory);
    ~Removals() override;

    /// Newest first; empty before the history was read.
    const Entries& history() const { return *m_entries; }

    /// requests  put together on the removing thread
    /// then      called on the main thread, after the history has been published; not after `finish`
    void remove(std::function<Requests()> requests, std::function<void(const FinishedRemovalPtr&)> then);

    /// Puts back what can be, as far as it is not in the way of anything.
    void restore(std::shared_ptr<const Entries> entries, std::function<void(const PutBackPtr&)> then);

    void clearHistory();

    /// Finds out anew which entries can be put back; `restorableChanged` tells when that is known.
    void lookForRestorable();
    bool isRestorable(const Uuid& entry) const { return m_restorable.contains(entry); }

    /// Begins nothing any more and stops what is at work after the item at hand. Whether nothing is at work;
    /// where something is, `finished` follows.
    bool finish();

signals:
    void historyChanged();
    void restorableChanged();
    void finished();

private:
    /// The history and its owner thread's own.
    struct Desk {
        DeletionHistory* history = nullptr;
        WorkGate gate;
    };
    using Snapshot = std::shared_ptr<const Entries>;

    template <typename Work, typename Then>
    void queue(Work work, Then then);
    void publish(Snapshot entries);

    DeletionRun m_run;
    std::shared_ptr<Desk> m_desk = std::make_shared<Desk>();
    std::stop_source m_stop;
    Snapshot m_entries = std::make_shared<const Entries>();
    UuidSet m_restorable;
    bool m_looks = false; ///< lookForRestorable is on its way
    BackgroundWork m_thread{1};
};

} // namespace brimlet
