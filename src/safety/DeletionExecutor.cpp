#include "safety/DeletionExecutor.h"

#include "core/Localized.h"
#include "safety/HistoryFormat.h"

namespace brimlet {

namespace {

constexpr int noSuchFile = 4;
constexpr int noReadPermission = 257;
constexpr int noWritePermission = 513;
constexpr int notPermitted = 1;  // EPERM, everywhere
constexpr int accessDenied = 13; // EACCES, everywhere

bool isCocoa(const PlatformError& error, int code) {
    return error.domain == ErrorDomain::cocoa && error.code == code;
}

} // namespace

std::string DeletionExecutor::reason(const PlatformError& forError) {
    if (isCocoa(forError, noWritePermission) || isCocoa(forError, noReadPermission))
        return localized("No permission. It may need Full Disk Access, or it belongs to another user.");
    if (isCocoa(forError, noSuchFile))
        return localized("No longer exists.");
    if (forError.underlyingPosixCode == notPermitted || forError.underlyingPosixCode == accessDenied)
        return localized("Protected by macOS or in use.");
    return forError.description;
}

DeletionExecutor::DeletionExecutor(FileRemoval& removal, RecordStore& store, PathJudge judge)
    : m_removal(removal)
    , m_store(store)
    , m_judge(std::move(judge)) {}

ExecutedRun DeletionExecutor::execute(const std::vector<DeletionRequest>& requests) {
    ExecutedRun run;
    run.journal = std::make_shared<RunJournal>(m_store);
    for (const DeletionRequest& request : requests)
        carryOut(request, run);
    return run;
}

DeletionExecutor::Protection DeletionExecutor::protection(const std::string& path) const {
    SafetyVerdict verdict = m_judge(path);
    return verdict.risk == Risk::protected_ ? Protection(std::move(verdict.reason)) : std::nullopt;
}

void DeletionExecutor::carryOut(const DeletionRequest& request, ExecutedRun& run) {
    const auto refuse = [&](std::vector<DeletionFailure>& list, std::string why) {
        list.push_back({Uuid::random(), request.path, std::move(why)});
    };
    Protection protectedBy = protection(request.path);
    if (protectedBy)
        return refuse(run.report.skippedProtected, std::move(*protectedBy));
    const Result<std::unique_ptr<PinnedEntry>> pinned = m_removal.pin(request.path);
    if (const PlatformError* error = errorIn(pinned))
        return refuse(run.report.failures, reason(*error));
    const PinnedEntry& entry = **std::get_if<std::unique_ptr<PinnedEntry>>(&pinned);
    const auto judge = [&](const PlannedMove&) -> Failure {
        protectedBy = protection(request.path);
        if (!protectedBy && entry.resolvedPath() != request.path)
            protectedBy = protection(entry.resolvedPath());
        return protectedBy ? Failure({ErrorDomain::posix, notPermitted, std::nullopt, *protectedBy})
                           : std::nullopt;
    };
    const Failure failure = perform(request, entry, run, judge);
    if (protectedBy)
        refuse(run.report.skippedProtected, std::move(*protectedBy));
    else if (failure)
        refuse(run.report.failures, reason(*failure));
}

/// Removes one entry and records that. An error with an entry recorded tells of what the original left
/// behind.
Failure DeletionExecutor::perform(const DeletionRequest& request, const PinnedEntry& pinned, ExecutedRun& run,
                                  const BeforeMove& judge) {
    HistoryEntry entry;
    entry.date = historyDateNow();
    entry.originalPath = request.path;
    entry.size = request.size;
    Failure leftBehind;
    if (request.removal == Removal::trash) {
        const auto note = [&](const PlannedMove& move) {
            const Failure refused = judge(move);
            return refused ? refused : run.journal->note({IntentKind::trash, entry, move});
        };
        const Result<TrashArrival> arrival = m_removal.moveToTrash(pinned, note);
        if (const PlatformError* error = errorIn(arrival))
            return *error;
        entry.trashPath = std::get_if<TrashArrival>(&arrival)->trashPath;
        leftBehind = std::get_if<TrashArrival>(&arrival)->leftBehind;
        run.report.movedToTrash += request.size;
    } else {
        const auto note = [&](const PlannedMove& move) -> Failure {
            if (auto refused = judge(move))
                return refused;
            // There is no way back to lose, and on a full disk a removal must not need space first.
            (void)run.journal->note({IntentKind::remove, entry, move});
            return std::nullopt;
        };
        if (auto failure = m_removal.remove(pinned, note))
            return failure;
        run.journal->removalDone(entry.id);
        run.report.freed += request.size;
    }
    run.entries.push_back(std::move(entry));
    run.report.deletedPaths.push_back(request.path);
    return leftBehind;
}

} // namespace brimlet
