// The removal side of AppState: what is pending, what was done, what was refused, and the way back.
#include "app/AppState.h"
#include "safety/DeletionPlanning.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace brimlet {

namespace {

/// The notice with what there is to say about items that went or came all the same, each sentence once.
Toast toastOf(DeletionNotice said, const std::vector<DeletionFailure>& remarks = {}) {
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

void AppState::setToast(std::optional<Toast> toast) {
    change(m_toast, std::move(toast), &AppState::toastChanged);
}

void AppState::say(const QString& sentence) {
    setToast(toastOf({sentence.toStdString(), {}}));
}

const DeletionPlan* AppState::plan() const {
    const auto& proposal = m_proposals.current();
    return proposal && proposal->judged ? &proposal->judged->plan : nullptr;
}

void AppState::proposePlan(std::vector<PlanItem> items, std::string title) {
    PlanDraft draft{std::move(title), static_cast<std::int64_t>(items.size()), 0, {}};
    for (const PlanItem& item : items)
        draft.size += item.size;
    draft.items = [items = std::move(items)](const std::stop_token&) { return items; };
    m_proposals.propose(std::move(draft));
}

void AppState::executePlan(std::shared_ptr<const DeletionPlan> plan, ReviewItems review) {
    const auto preference = m_permanentDelete ? RemovalPreference::permanent : RemovalPreference::asPlanned;
    m_proposals.cancel();
    runDeletion(
        [plan = std::move(plan), review, preference] { return requestsOf(*plan, review, preference); },
        RunNotice::shown, {});
}

void AppState::runDeletion(std::function<std::vector<DeletionRequest>()> requests, RunNotice notice,
                           std::function<void(const FinishedRemovalPtr&)> then) {
    m_removals.remove(std::move(requests),
                      [this, notice, then = std::move(then)](const FinishedRemovalPtr& outcome) {
                          // The tree and the totals are right before the notice shows.
                          removeDeleted({outcome, &outcome->gone}, [this, outcome, notice, then] {
                              change(m_volume, m_services.volumes.volumeInfo("/"), &AppState::volumeChanged);
                              if (notice == RunNotice::shown)
                                  tell(outcome);
                              if (then)
                                  then(outcome);
                          });
                      });
}

void AppState::tell(const FinishedRemovalPtr& outcome) {
    Toast toast = toastOf(noticeOf(outcome->report), outcome->report.remarks);
    if (!outcome->undoable.empty())
        toast.undoable = {outcome, &outcome->undoable};
    setToast(std::move(toast));
    m_failures = {outcome, &outcome->failures};
    emit failuresChanged();
}

void AppState::restoreEntries(std::shared_ptr<const std::vector<HistoryEntry>> entries) {
    m_removals.restore(std::move(entries), [this](const PutBackPtr& outcome) {
        addRestored({outcome, &outcome->paths}, [this, outcome] {
            setToast(toastOf(restoreNotice(static_cast<int>(outcome->paths.size())), outcome->remarks));
        });
    });
}

void AppState::restoreEntry(const HistoryEntry& entry) {
    m_removals.restore(std::make_shared<const std::vector<HistoryEntry>>(1, entry),
                       [this](const PutBackPtr& outcome) {
                           addRestored({outcome, &outcome->paths}, [this, outcome] {
                               if (!outcome->remarks.empty())
                                   setToast(toastOf(restoreNotice(1), outcome->remarks));
                           });
                       });
}

void AppState::removeDeleted(const TreeUpdates::Paths& paths, std::function<void()> then) {
    if (paths->empty()) {
        then();
        return;
    }
    if (m_scanner)
        m_deletedWhileScanning.insert(paths->begin(), paths->end());
    removeDeletedJunk(*paths);
    m_treeUpdates.markDeleted(m_scan, paths, [this, then = std::move(then)] {
        publishTree();
        then();
    });
}

void AppState::addRestored(const TreeUpdates::Paths& paths, std::function<void()> then) {
    m_junkSearch.restored(*paths);
    for (const std::string& path : *paths)
        m_deletedWhileScanning.erase(path);
    change(m_volume, m_services.volumes.volumeInfo("/"), &AppState::volumeChanged);
    if (paths->empty()) {
        then();
        return;
    }
    m_treeUpdates.markRestored(m_scan, paths, [this, then = std::move(then)] {
        publishTree();
        then();
    });
}

/// Whoever stood in a folder that is gone stands in the nearest one that is left.
void AppState::publishTree() {
    if (m_scan) {
        emit scanChanged();
        const auto gone =
            std::ranges::find_if(m_explorerStack, [](const FileNode* node) { return node->deleted; });
        if (gone != m_explorerStack.begin())
            setExplorerStack({m_explorerStack.begin(), gone});
    }
    raiseRevision();
}

bool AppState::readyToQuit() {
    if (m_removals.finish())
        return true;
    change(m_isFinishing, true, &AppState::isFinishingChanged);
    return false;
}

void AppState::endWork(std::chrono::milliseconds patience) {
    m_removals.finish();
    m_proposals.cancel();
    m_junkSearch.cancel();
    cancelScan();
    m_work.waitFor(patience);
}

} // namespace brimlet
