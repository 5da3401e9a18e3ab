#include "app/state/RemovalState.h"

#include "app/state/AppServices.h"
#include "app/state/NoticeState.h"
#include "app/state/PreferencesState.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace brimlet {

namespace {

/// The notice with what there is to say about items that went or came all the same, each sentence once.
Toast toastOf(DeletionNotice said, const std::vector<DeletionFailure>& remarks) {
    std::vector<std::string_view> sentences;
    if (!said.detail.empty())
        sentences.push_back(said.detail);
    for (const DeletionFailure& remark : remarks) {
        if (std::ranges::find(sentences, remark.reason) == sentences.end())
            sentences.push_back(remark.reason);
    }
    Toast toast;
    for (const std::string_view sentence : sentences)
        toast.detail = toast.detail ? *toast.detail + " " + std::string(sentence) : std::string(sentence);
    toast.message = std::move(said.message);
    return toast;
}

} // namespace

RemovalState::RemovalState(const AppServices& services, BackgroundWork& work, PathUpdates& updates,
                           const PreferencesState& preferences, NoticeState& notice)
    : m_updates(updates)
    , m_preferences(preferences)
    , m_notice(notice)
    , m_proposals(work)
    , m_removals(services.deletionRun, services.openHistory) {
    connect(&m_removals, &Removals::historyChanged, this, &RemovalState::historyChanged);
    connect(&m_removals, &Removals::finished, this, &RemovalState::finished);
    connect(&m_proposals, &PlanProposals::changed, this, &RemovalState::planChanged);
}

const DeletionPlan* RemovalState::plan() const {
    const auto& proposal = m_proposals.current();
    return proposal && proposal->judged ? &proposal->judged->plan : nullptr;
}

void RemovalState::proposePlan(std::vector<PlanItem> items, std::string title) {
    PlanDraft draft{std::move(title), static_cast<std::int64_t>(items.size()), 0, {}};
    for (const PlanItem& item : items)
        draft.size += item.size;
    draft.items = [items = std::move(items)](const std::stop_token&) { return items; };
    m_proposals.propose(std::move(draft));
}

void RemovalState::executePlan(std::shared_ptr<const DeletionPlan> plan, ReviewItems review) {
    const auto preference =
        m_preferences.permanentDelete() ? RemovalPreference::permanent : RemovalPreference::asPlanned;
    m_proposals.cancel();
    runDeletion(
        [plan = std::move(plan), review, preference] { return requestsOf(*plan, review, preference); },
        RunNotice::shown, {});
}

void RemovalState::runDeletion(std::function<std::vector<DeletionRequest>()> requests, RunNotice notice,
                               std::function<void(const FinishedRemovalPtr&)> then) {
    m_removals.remove(std::move(requests),
                      [this, notice, then = std::move(then)](const FinishedRemovalPtr& outcome) {
                          // The tree and the totals are right before the notice shows.
                          m_updates.forget({outcome, &outcome->gone}, [this, outcome, notice, then] {
                              if (notice == RunNotice::shown)
                                  tell(outcome);
                              if (then)
                                  then(outcome);
                          });
                      });
}

void RemovalState::tell(const FinishedRemovalPtr& outcome) {
    Toast toast = toastOf(noticeOf(outcome->report), outcome->report.remarks);
    if (!outcome->undoable.empty())
        toast.undoable = {outcome, &outcome->undoable};
    m_notice.setToast(std::move(toast));
    m_failures = {outcome, &outcome->failures};
    emit failuresChanged();
}

void RemovalState::restoreEntries(std::shared_ptr<const std::vector<HistoryEntry>> entries) {
    m_removals.restore(std::move(entries), [this](const PutBackPtr& outcome) {
        m_updates.takeBack({outcome, &outcome->paths}, [this, outcome] {
            m_notice.setToast(
                toastOf(restoreNotice(static_cast<int>(outcome->paths.size())), outcome->remarks));
        });
    });
}

void RemovalState::restoreEntry(const HistoryEntry& entry) {
    m_removals.restore(std::make_shared<const std::vector<HistoryEntry>>(1, entry),
                       [this](const PutBackPtr& outcome) {
                           m_updates.takeBack({outcome, &outcome->paths}, [this, outcome] {
                               if (!outcome->remarks.empty())
                                   m_notice.setToast(toastOf(restoreNotice(1), outcome->remarks));
                           });
                       });
}

bool RemovalState::finish() {
    m_proposals.cancel();
    return m_removals.finish();
}

} // namespace brimlet
