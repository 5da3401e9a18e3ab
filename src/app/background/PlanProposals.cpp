#include "app/background/PlanProposals.h"

#include "app/background/LargeValue.h"
#include "safety/DeletionPlanning.h"

#include <utility>

namespace brimlet {

JudgedPlan::JudgedPlan(DeletionPlan made)
    : plan(std::move(made)) {
    for (std::size_t i = 0; i < plan.items.size(); ++i) {
        Section& section = sections.at(static_cast<std::size_t>(plan.items[i].verdict.risk));
        section.items.push_back(static_cast<std::uint32_t>(i));
        section.size += plan.items[i].size;
    }
}

void PlanProposals::propose(PlanDraft draft) {
    if (draft.count < 1)
        return;
    m_stop.request_stop();
    m_stop = std::stop_source();
    m_current = Proposal{draft.title, draft.count, draft.size, nullptr};
    emit changed();
    m_work.run(
        [draft = std::move(draft), stop = m_stop.get_token()]() -> std::shared_ptr<const JudgedPlan> {
            std::vector<PlanItem> items = draft.items(stop);
            if (stop.stop_requested())
                return nullptr;
            std::optional<DeletionPlan> plan = planOf(std::move(items), draft.title);
            return plan ? largeValue(JudgedPlan(std::move(*plan))) : nullptr;
        },
        [this, stop = m_stop.get_token()](std::shared_ptr<const JudgedPlan> judged) {
            if (stop.stop_requested()) // replaced or cancelled
                return;
            if (judged)
                m_current->judged = std::move(judged);
            else
                m_current.reset();
            emit changed();
        });
}

void PlanProposals::cancel() {
    m_stop.request_stop();
    if (!std::exchange(m_current, std::nullopt))
        return;
    emit changed();
}

} // namespace brimlet
