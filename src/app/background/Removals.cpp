#include "app/background/Removals.h"

#include "app/background/LargeValue.h"
#include "safety/DeletionPlanning.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace brimlet {

namespace {

FinishedRemoval outcomeOf(ExecutedRun run) {
    FinishedRemoval outcome;
    outcome.report = std::move(run.report);
    outcome.undoable = undoableOf(run.entries);
    const DeletionReport& report = outcome.report;
    outcome.gone = {report.deletedPaths.begin(), report.deletedPaths.end()};
    outcome.failures = report.failures;
    outcome.failures.insert(outcome.failures.end(), report.skippedProtected.begin(),
                            report.skippedProtected.end());
    return outcome;
}

} // namespace

Removals::Removals(DeletionRun run, HistoryOpening openHistory)
    : m_run(std::move(run)) {
    m_thread.run(
        [desk = m_desk, open = std::move(openHistory)] {
            desk->history = &open();
            return std::make_shared<const Entries>(desk->history->entries());
        },
        [this](const Snapshot& entries) { publish(entries); });
}

Removals::~Removals() {
    finish();
}

/// Work gets the history; what it gives goes to `then` after the new entries have been published. Nothing of
/// it happens once the gate is shut.
template <typename Work, typename Then>
void Removals::queue(Work work, Then then) {
    using Result = std::invoke_result_t<Work, DeletionHistory&>;
    struct Step {
        std::optional<Result> result;
        Snapshot entries;
    };
    m_thread.run(
        [desk = m_desk, work = std::move(work)] {
            Step step;
            if (!desk->gate.enter())
                return step;
            step.result = work(*desk->history);
            step.entries = std::make_shared<const Entries>(desk->history->entries());
            desk->gate.leave();
            return step;
        },
        [this, then = std::move(then)](Step step) {
            if (step.result) {
                publish(std::move(step.entries));
                then(std::move(*step.result));
            }
            if (m_desk->gate.isShut())
                emit finished();
        });
}

void Removals::publish(Snapshot entries) {
    const bool isSame = *entries == *m_entries;
    m_entries = std::move(entries);
    if (!isSame)
        emit historyChanged();
}

void Removals::remove(std::function<Requests()> requests,
                      std::function<void(const FinishedRemovalPtr&)> then) {
    queue(
        [run = m_run, requests = std::move(requests), stop = m_stop.get_token()](DeletionHistory& history) {
            ExecutedRun done = run(requests(), stop);
            history.record(done);
            return largeValue(outcomeOf(std::move(done)));
        },
        std::move(then));
}

void Removals::restore(std::shared_ptr<const Entries> entries, std::function<void(const PutBackPtr&)> then) {
    queue(
        [entries = std::move(entries), stop = m_stop.get_token()](DeletionHistory& history) {
            RestoreOutcome done = history.restoring(*entries)(stop);
            history.adopt(done);
            PutBack outcome;
            for (const HistoryEntry& entry : done.restored)
                outcome.paths.insert(entry.originalPath);
            outcome.remarks = std::move(done.remarks);
            return largeValue(std::move(outcome));
        },
        std::move(then));
}

void Removals::clearHistory() {
    queue([](DeletionHistory& history) { return history.clear(); }, [](bool) {});
}

void Removals::lookForRestorable() {
    if (std::exchange(m_looks, true))
        return;
    m_thread.run(
        [desk = m_desk, stop = m_stop.get_token()] {
            UuidSet restorable;
            for (const HistoryEntry& entry : desk->history->entries()) {
                if (!stop.stop_requested() && desk->history->canRestore(entry))
                    restorable.insert(entry.id);
            }
            return restorable;
        },
        [this](UuidSet restorable) {
            m_looks = false;
            m_restorable = std::move(restorable);
            emit restorableChanged();
        });
}

bool Removals::finish() {
    m_stop.request_stop();
    return m_desk->gate.shut();
}

} // namespace brimlet
