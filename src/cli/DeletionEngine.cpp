#include "cli/DeletionEngine.h"

#include "junk/JunkCatalogue.h"
#include "platform/HomeFolder.h"

#include <filesystem>
#include <system_error>

namespace brimlet {

PathAssessor::PathAssessor()
    : running(bundles)
    , policy(homeFolder(), junkCatalogue(), bundles, running)
    , judge(judgeByBothHomes(policy, homeFolder(), pathWithoutLinks(homeFolder())))
    , removal(homeFolder(), calls) {}

SafetyVerdict PathAssessor::verdict(const std::string& path) {
    SafetyVerdict asGiven = judge(path);
    const auto pinned = removal.pin(path);
    if (errorIn(pinned) != nullptr)
        return asGiven;
    SafetyVerdict resolved = judge((*std::get_if<std::unique_ptr<PinnedEntry>>(&pinned))->resolvedPath());
    return resolved.risk > asGiven.risk ? resolved : asGiven;
}

DeletionEngine::DeletionEngine(PathAssessor& assessor)
    : records(historyFolder(homeFolder()), assessor.calls)
    , executor(assessor.removal, records, assessor.judge)
    , history(records, assessor.removal) {}

std::string absoluteAsGiven(std::string path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.pop_back();
    if (path.empty() || path.starts_with('/'))
        return path;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? path : (folder / path).native();
}

} // namespace brimlet
