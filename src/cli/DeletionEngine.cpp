#include "cli/DeletionEngine.h"

#include "junk/JunkCatalogue.h"
#include "platform/HomeFolder.h"

#include <filesystem>
#include <system_error>

namespace brimlet {

DeletionEngine::DeletionEngine()
    : running(bundles)
    , policy(homeFolder(), junkCatalogue(), bundles, running)
    , removal(homeFolder(), calls)
    , records(historyFolder(homeFolder()), calls)
    , executor(removal, records, [this](std::string_view path) { return policy.verdict(path); })
    , history(records, removal) {}

SafetyVerdict DeletionEngine::verdict(const std::string& path) {
    SafetyVerdict asGiven = policy.verdict(path);
    const auto pinned = removal.pin(path);
    if (errorIn(pinned) != nullptr)
        return asGiven;
    SafetyVerdict resolved =
        policy.verdict((*std::get_if<std::unique_ptr<PinnedEntry>>(&pinned))->resolvedPath());
    return resolved.risk > asGiven.risk ? resolved : asGiven;
}

std::string absoluteAsGiven(const std::string& path) {
    if (path.empty() || path.starts_with('/'))
        return path;
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? path : (folder / path).native();
}

} // namespace brimlet
