#include "cli/DeletionEngine.h"

#include "platform/HomeFolder.h"

#include <filesystem>
#include <system_error>

namespace brimlet {

PathAssessor::PathAssessor(const SystemTables& ofSystem)
    : system(ofSystem)
    , running(bundles, system.safety.applications.suffix)
    , policy(homeFolder(), system.safety, system.junk.rules, bundles, running)
    , judge(judgeByBothHomes(policy, homeFolder(), pathWithoutLinks(homeFolder())))
    , places(placesOfUser(homeFolder(), system.safety, policy, entries, lister))
    , review(judge, places, entries)
    , removal(homeFolder(), calls) {}

DeletionEngine::DeletionEngine(PathAssessor& assessor)
    : records(historyFolder(homeFolder(), assessor.system.safety), assessor.calls)
    , executor(assessor.system.safety, assessor.removal, records, assessor.judge, assessor.places)
    , history(records, assessor.removal, HistoryStart::fileOnly)
    , m_recovery(records, assessor.removal) {
    history.take(m_recovery.complete(), m_recovery);
    m_tidying = std::jthread([this](const std::stop_token& stop) { m_recovery.tidy(stop); });
}

std::optional<std::string> refusalOfHome() {
    if (!belongsToAnother(homeFolder()))
        return std::nullopt;
    return "The home folder " + homeFolder() +
           " belongs to another user. Run this as that user, or set HOME to a folder of your own.";
}

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
