// The plan that waits for its user's consent, from the moment it is asked for.
//
// Published at once with what is known, then put together, judged and cleared of nested items in the
// background. Only the newest proposal is published; cancelling ends those that are still judged. Main
// thread.
#pragma once

#include "app/background/BackgroundWork.h"
#include "safety/DeletionRecords.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <QObject>
#include <stop_token>
#include <string>
#include <vector>

namespace brimlet {

/// What a user has chosen to delete, before anything of it is judged.
struct PlanDraft {
    std::string title;
    std::int64_t count = 0;
    std::int64_t size = 0; ///< bytes

    /// The chosen items with their verdicts of the moment. Called on a background thread; what it gives after
    /// a stop is not looked at.
    std::function<std::vector<PlanItem>(const std::stop_token&)> items;
};

/// A plan with what the sheet needs of it, however long it is.
struct JudgedPlan {
    /// The items of one risk.
    struct Section {
        std::vector<std::uint32_t> items; ///< positions in the plan, in its order
        std::int64_t size = 0;
    };

    DeletionPlan plan;
    std::array<Section, allRisks.size()> sections;

    explicit JudgedPlan(DeletionPlan made);
    const Section& section(Risk risk) const { return sections.at(static_cast<std::size_t>(risk)); }
};

struct Proposal {
    std::string title;
    std::int64_t count = 0;
    std::int64_t size = 0;
    std::shared_ptr<const JudgedPlan> judged; ///< null while the items are looked at
};

class PlanProposals : public QObject {
    Q_OBJECT

public:
    explicit PlanProposals(BackgroundWork& work)
        : m_work(work) {}

    const std::optional<Proposal>& current() const { return m_current; }

    /// Replaces what was proposed before. Without items nothing happens.
    void propose(PlanDraft draft);

    /// Drops the plan, and those that are still judged.
    void cancel();

signals:
    void changed();

private:
    BackgroundWork& m_work;
    std::optional<Proposal> m_current;
    std::stop_source m_stop; ///< of the newest proposal
};

} // namespace brimlet
