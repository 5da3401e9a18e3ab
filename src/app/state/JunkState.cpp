#include "app/state/JunkState.h"

#include "app/state/AppServices.h"
#include "app/state/RemovalState.h"

#include <unordered_set>
#include <utility>

namespace brimlet {

namespace {

void eraseItems(std::vector<JunkFinding>& findings, const std::unordered_set<std::string>& paths) {
    for (JunkFinding& finding : findings)
        std::erase_if(finding.items, [&](const JunkItem& item) { return paths.contains(item.path); });
}

} // namespace

JunkState::JunkState(const AppServices& services, BackgroundWork& work, RemovalState& removal)
    : m_services(services)
    , m_removal(removal)
    , m_search(work, services.junkSearch, owner()) {}

SearchedList<std::vector<JunkFinding>>::Owner JunkState::owner() {
    return {.publish =
                [this](std::vector<JunkFinding> found) {
                    m_findings = std::move(found);
                    emit findingsChanged();
                },
            .loadingChanged = [this] { emit loadingChanged(); },
            .leaveOut =
                [](std::vector<JunkFinding>& found, const std::unordered_set<std::string>& gone) {
                    eraseItems(found, gone);
                    std::erase_if(found, [](const JunkFinding& finding) { return finding.items.empty(); });
                }};
}

void JunkState::proposePlan(std::vector<ChosenJunk> chosen) {
    PlanDraft draft{tr("Clean Junk").toStdString(), static_cast<std::int64_t>(chosen.size()), 0, {}};
    for (const ChosenJunk& one : chosen)
        draft.size += one.item.size;
    draft.items = [chosen = std::move(chosen), &review = m_services.review](const std::stop_token&) {
        return planItems(chosen, review);
    };
    m_removal.proposePlan(std::move(draft));
}

void JunkState::forget(const SharedPaths& gone, std::function<void()> then) {
    m_search.deleted(*gone);
    if (!m_findings.empty() && !gone->empty()) {
        eraseItems(m_findings, *gone);
        emit findingsChanged();
    }
    then();
}

void JunkState::takeBack(const SharedPaths& back, std::function<void()> then) {
    m_search.restored(*back);
    then();
}

} // namespace brimlet
