#include "safety/RequestJudge.h"

#include "core/Localized.h"

#include <cerrno>
#include <utility>

namespace brimlet {

RequestJudge::RequestJudge(PathJudge judge, ProtectedPlaces places)
    : m_judge(std::move(judge))
    , m_places(std::move(places)) {}

std::optional<std::string> RequestJudge::protectionOf(const std::string& path,
                                                      const DeletionRequest& request) const {
    SafetyVerdict verdict = m_judge(path);
    if (verdict.risk == Risk::protected_)
        return std::move(verdict.reason);
    return m_places.reasonToKeep(path, request.identity);
}

std::optional<std::string> RequestJudge::protection(const DeletionRequest& request) const {
    return protectionOf(request.path, request);
}

std::optional<std::string> RequestJudge::protection(const DeletionRequest& request,
                                                    const PinnedEntry& entry) const {
    std::optional<std::string> reason = protection(request);
    if (!reason && entry.resolvedPath() != request.path)
        reason = protectionOf(entry.resolvedPath(), request);
    return reason;
}

Failure RequestJudge::refusal(const DeletionRequest& request, const PinnedEntry& entry) const {
    if (entry.resolvedPath() == request.path || m_judge(entry.resolvedPath()).risk <= request.acceptedRisk)
        return std::nullopt;
    return PlatformError{ErrorDomain::posix, EPERM, std::nullopt,
                         localized("It lies behind a link, in a place that needs a review first.")};
}

} // namespace brimlet
