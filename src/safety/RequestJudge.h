// What the engine asks before it touches anything: whether a request may be carried out at all, and where.
// Made for one run; callable from any thread.
#pragma once

#include "platform/FileRemoval.h"
#include "safety/DeletionRecords.h"
#include "safety/PathJudge.h"
#include "safety/ProtectedPlaces.h"

#include <optional>
#include <string>

namespace brimlet {

class RequestJudge {
public:
    RequestJudge(PathJudge judge, ProtectedPlaces places);

    /// Why nothing may be done at the path of a request, or empty. Judged afresh at each call.
    std::optional<std::string> protection(const DeletionRequest& request) const;

    /// Likewise for the path and for the entry that it has led to.
    std::optional<std::string> protection(const DeletionRequest& request, const PinnedEntry& entry) const;

    /// An error when the place that an entry really lies in is riskier than what was accepted.
    Failure refusal(const DeletionRequest& request, const PinnedEntry& entry) const;

private:
    std::optional<std::string> protectionOf(const std::string& path, const DeletionRequest& request) const;

    PathJudge m_judge;
    ProtectedPlaces m_places;
};

} // namespace brimlet
