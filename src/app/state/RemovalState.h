// Removal as its user meets it: what is proposed, what was done, what was refused, and the way back.
// Main thread.
#pragma once

#include "app/background/PathUpdates.h"
#include "app/background/PlanProposals.h"
#include "app/background/Removals.h"
#include "app/state/StatePart.h"
#include "safety/DeletionPlanning.h"

#include <functional>
#include <memory>
#include <optional>
#include <QtQml/qqmlregistration.h>
#include <string>
#include <vector>

namespace brimlet {

class NoticeState;
class PreferencesState;
struct AppServices;

/// Whether the user is told what a run did.
enum class RunNotice { shown, quiet };

class RemovalState : public StatePart {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(bool hasPlan READ hasPlan NOTIFY planChanged)

public:
    /// Everything outlives this object, but `work`, which goes first.
    RemovalState(const AppServices& services, BackgroundWork& work, PathUpdates& updates,
                 const PreferencesState& preferences, NoticeState& notice);

    /// What the confirmation sheet is about; without a plan while that is put together and judged.
    const std::optional<Proposal>& proposal() const { return m_proposals.current(); }
    const DeletionPlan* plan() const; ///< null until it has been judged
    bool hasPlan() const { return proposal().has_value(); }

    /// Opens the sheet, and publishes a plan of the items that lie in no other item as soon as all are
    /// judged. Does nothing without items.
    void proposePlan(PlanDraft draft) { m_proposals.propose(std::move(draft)); }
    void proposePlan(std::vector<PlanItem> items, std::string title); ///< of items that are judged already
    void cancelPlan() { m_proposals.cancel(); }

    /// Closes the plan and removes what it holds; what is protected, or wants a look and was not accepted,
    /// stays.
    void executePlan(std::shared_ptr<const DeletionPlan> plan, ReviewItems review);

    /// Removes in the background, after what was asked for before, then brings history, tree, lists, volume
    /// and, unless quiet, the notice up to date.
    /// requests  put together in the background
    /// then      called after all that; may be empty
    void runDeletion(std::function<std::vector<DeletionRequest>()> requests, RunNotice notice,
                     std::function<void(const FinishedRemovalPtr&)> then);

    const std::vector<DeletionFailure>& failures() const { return *m_failures; } ///< of the newest run

    /// Newest first; empty until the file has been read.
    const std::vector<HistoryEntry>& history() const { return m_removals.history(); }
    const Removals& removals() const { return m_removals; }

    /// Finds out anew which entries can be restored, as `removals` tells.
    Q_INVOKABLE void lookForRestorable() { m_removals.lookForRestorable(); }

    /// Puts entries back where they were, as far as that is possible, and says how many.
    void restoreEntries(std::shared_ptr<const std::vector<HistoryEntry>> entries);

    /// Puts one entry back. What can't be is left as it was, without a word.
    void restoreEntry(const HistoryEntry& entry);

    Q_INVOKABLE void clearHistory() { m_removals.clearHistory(); }

    /// Begins nothing any more. Whether nothing is at work; where something is, `finished` follows.
    bool finish();

signals:
    void planChanged();
    void failuresChanged();
    void historyChanged();
    void finished();

private:
    void tell(const FinishedRemovalPtr& outcome);

    PathUpdates& m_updates;
    const PreferencesState& m_preferences;
    NoticeState& m_notice;
    PlanProposals m_proposals;
    std::shared_ptr<const std::vector<DeletionFailure>> m_failures =
        std::make_shared<const std::vector<DeletionFailure>>();
    Removals m_removals; // Goes first: what it does is handed back to the members above.
};

} // namespace brimlet
