#include "cli/DeletionEngine.h"

#include "junk/JunkCatalogue.h"
#include "platform/HomeFolder.h"

#include <filesystem>
#include <system_error>

namespace brimlet {

PathAssessor::PathAssessor()
    : running(bundles)
    , policy(homeFolder(), junkCatalogue(), bundles, running)
    , removal(homeFolder(), calls) {}

SafetyVerdict PathAssessor::verdict(const std::string& path) {
    SafetyVerdict asGiven = policy.verdict(path);
    const auto pinned = removal.pin(path);
    if (errorIn(pinned) != nullptr)
        return asGiven;
    SafetyVerdict resolved =
        policy.verdict((*std::get_if<std::unique_ptr<PinnedEntry>>(&pinned))->resolvedPath());
    return resolved.risk > asGiven.risk ? resolved : asGiven;
}

DeletionEngine::DeletionEngine(PathAssessor& assessor)
    : records(historyFolder(homeFolder()), assessor.calls)
    , executor(assessor.removal, records,
               [&assessor](std::string_view path) { return assessor.policy.verdict(path); })
    , history(records, assessor.removal) {}

std::string absoluteAsGiven(const std::string& path) {
    if (path.empty() || path.starts_with('/'))
        return path;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? path : (folder / path).native();
}

} // namespace brimlet
