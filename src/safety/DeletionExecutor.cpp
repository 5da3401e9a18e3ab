#include "safety/DeletionExecutor.h"

#include "core/Localized.h"
#include "core/walk/MeasureTree.h"
#include "safety/HistoryFormat.h"

#include <algorithm>
#include <cerrno>

namespace brimlet {

namespace {

constexpr int noSuchFile = 4;
constexpr int noReadPermission = 257;
constexpr int noWritePermission = 513;
constexpr int notPermitted = 1;  // EPERM, everywhere
constexpr int accessDenied = 13; // EACCES, everywhere

constexpr std::size_t mostInBatch = 512;
constexpr std::int64_t mostBytesInBatch = std::int64_t{1}
                                          << 30; // some seconds of work, so that forecasts hold

constexpr std::string_view notBegun = "The removal was stopped before this.";

Failure notAllowed(std::string sentence) {
    return PlatformError{ErrorDomain::posix, notPermitted, std::nullopt, std::move(sentence)};
}

bool isCocoa(const PlatformError& error, int code) {
    return error.domain == ErrorDomain::cocoa && error.code == code;
}

void refuse(std::vector<DeletionFailure>& list, const DeletionRequest& request, std::string why) {
    list.push_back({Uuid::random(), request.path, std::move(why)});
}

/// What would not go and where it is, to be said after the reason; empty where nothing went.
std::string stayedText(const RemovalOutcome& outcome, const std::string& place) {
    std::string moved = outcome.rest.empty() || outcome.rest == place
                            ? std::string()
                            : " " + localized("What could not be removed is now called") + " " + outcome.rest;
    if (outcome.stayed.empty())
        return moved;
    std::string text = " " + localized("Still there:");
    for (std::size_t i = 0; i < outcome.stayed.size(); ++i)
        text += (i == 0 ? " " : ", ") + outcome.stayed[i];
    const std::size_t more = outcome.stayedCount - outcome.stayed.size();
    if (more > 0)
        text += localized(" and more: ") + std::to_string(more);
    return text + "." + moved;
}

} // namespace

std::string DeletionExecutor::reason(const PlatformError& forError, const SafetyTables& tables) {
    if (isCocoa(forError, noWritePermission) || isCocoa(forError, noReadPermission))
        return localized("No permission. It may need Full Disk Access, or it belongs to another user.");
    if (isCocoa(forError, noSuchFile))
        return localized("No longer exists.");
    if (forError.underlyingPosixCode == notPermitted || forError.underlyingPosixCode == accessDenied)
        return localized(tables.heldBySystem);
    return forError.description;
}

DeletionExecutor::DeletionExecutor(const SafetyTables& tables, FileRemoval& removal, RecordStore& store,
                                   PathJudge judge, PlacesSource places)
    : m_tables(tables)
    , m_removal(removal)
    , m_store(store)
    , m_judge(std::move(judge))
    , m_places(std::move(places)) {}

/// A request with what is known of it before its turn.
struct DeletionExecutor::Step {
    const DeletionRequest& request;
    Intent intent; ///< its move is a forecast, empty where none could be made
    bool isNoted = false;
    bool isBegun = false;
};

ExecutedRun DeletionExecutor::execute(const std::vector<DeletionRequest>& requests,
                                      const std::stop_token& stop) {
    ExecutedRun run;
    run.journal = std::make_shared<RunJournal>(m_store);
    const RequestJudge judge(m_judge, m_places());
    std::span<const DeletionRequest> left(requests);
    std::unique_ptr<PinnedEntry> last;
    while (!left.empty() && !stop.stop_requested()) {
        std::vector<Step> batch = nextBatch(left, judge, *run.journal);
        left = left.subspan(batch.size());
        for (Step& step : batch) {
            carryOut(step, judge, last, run, stop);
            if (!step.isBegun && step.isNoted && !stop.stop_requested())
                run.journal->drop(step.intent.entry.id);
            else if (!step.isBegun)
                run.journal->close(step.intent.entry.id);
        }
    }
    for (const DeletionRequest& request : left)
        refuse(run.report.failures, request, localized(notBegun));
    return run;
}

/// Plans the first of the requests and notes all these plans at once. What can't be noted so is noted alone
/// in its turn.
std::vector<DeletionExecutor::Step> DeletionExecutor::nextBatch(std::span<const DeletionRequest> requests,
                                                                const RequestJudge& judge,
                                                                RunJournal& journal) {
    std::vector<Step> batch;
    std::vector<Intent> intents;
    PlannedNumbers numbers;
    std::int64_t bytes = 0;
    for (const DeletionRequest& request : requests.first(std::min(requests.size(), mostInBatch))) {
        if (bytes >= mostBytesInBatch)
            break;
        bytes += std::max<std::int64_t>(request.size, 0);
        const bool isForTrash = request.removal == Removal::trash;
        Step step{request, {isForTrash ? IntentKind::trash : IntentKind::remove, {}, {}}};
        step.intent.entry.date = historyDateNow();
        step.intent.entry.originalPath = request.path;
        step.intent.entry.size = request.size;
        if (request.identity && !judge.protection(request))
            step.intent.move = isForTrash ? m_removal.planTrashing(request.path, *request.identity, numbers)
                                          : m_removal.planRemoval(request.path, *request.identity);
        step.isNoted = !step.intent.move.identity.empty();
        if (step.isNoted)
            intents.push_back(step.intent);
        batch.push_back(std::move(step));
    }
    if (!intents.empty() && journal.note(intents)) {
        for (Step& step : batch)
            step.isNoted = false;
    }
    return batch;
}

/// Opens what a request names, if that is what was reviewed.
Result<std::unique_ptr<PinnedEntry>> DeletionExecutor::pin(const DeletionRequest& request,
                                                           const PinnedEntry* neighbour) {
    if (request.identity)
        return m_removal.pin(request.path, *request.identity, neighbour);
    // Nothing was there when it was reviewed.
    const auto now = m_removal.identity(request.path);
    if (const PlatformError* error = errorIn(now))
        return *error;
    const bool isThere = std::get_if<std::optional<FileIdentity>>(&now)->has_value();
    return isThere ? changedSinceReview() : errorFromErrno(ENOENT);
}

/// last   pinned by the item before, or empty; becomes what this one pins
void DeletionExecutor::carryOut(Step& step, const RequestJudge& judge, std::unique_ptr<PinnedEntry>& last,
                                ExecutedRun& run, const std::stop_token& stop) {
    const DeletionRequest& request = step.request;
    if (stop.stop_requested())
        return refuse(run.report.failures, request, localized(notBegun));
    std::optional<std::string> protectedBy = judge.protection(request);
    if (protectedBy)
        return refuse(run.report.skippedProtected, request, std::move(*protectedBy));
    Result<std::unique_ptr<PinnedEntry>> pinned = pin(request, last.get());
    if (const PlatformError* error = errorIn(pinned))
        return refuse(run.report.failures, request, reason(*error, m_tables));
    last = valueOf(std::move(pinned));
    const PinnedEntry& entry = *last;
    const auto before = [&](const PlannedMove& move) -> Failure {
        protectedBy = judge.protection(request, entry);
        Failure refused = protectedBy ? notAllowed(*protectedBy) : judge.refusal(request, entry);
        return refused ? refused : begin(step, move, *run.journal);
    };
    std::optional<std::string> failure = request.removal == Removal::trash
                                             ? moveToTrash(step, entry, before, run, stop)
                                             : removeForGood(step, entry, before, run, stop);
    if (protectedBy)
        refuse(run.report.skippedProtected, request, std::move(*protectedBy));
    else if (failure)
        refuse(run.report.failures, request, std::move(*failure));
}

/// Notes what is about to happen, unless it has been noted just so. Of a removal there is no way back to
/// lose, and on a full disk it must not need space first: it goes on unnoted where nothing is set aside.
Failure DeletionExecutor::begin(Step& step, const PlannedMove& move, RunJournal& journal) {
    if (!step.isNoted || move != step.intent.move) {
        step.intent.move = move;
        step.intent.isBegun = true;
        Failure failure = journal.note({&step.intent, 1});
        step.isNoted = !failure;
        if (failure && (step.intent.kind != IntentKind::remove || !move.setAside.empty()))
            return failure;
    }
    step.isBegun = true;
    return std::nullopt;
}

std::optional<std::string> DeletionExecutor::moveToTrash(const Step& step, const PinnedEntry& pinned,
                                                         const BeforeMove& before, ExecutedRun& run,
                                                         const std::stop_token& stop) {
    Result<TrashArrival> arrival = m_removal.moveToTrash(pinned, step.intent.move, before, stop);
    // On a full disk even a rename may need a block, for its folder.
    if (const PlatformError* error = errorIn(arrival);
        error != nullptr && *error == errorFromErrno(ENOSPC) && m_store.makeRoom())
        arrival = m_removal.moveToTrash(pinned, step.intent.move, before, stop);
    if (const PlatformError* error = errorIn(arrival))
        return reason(*error, m_tables);
    const TrashArrival& arrived = *std::get_if<TrashArrival>(&arrival);
    run.entries.push_back(step.intent.entry);
    run.entries.back().trashPath = arrived.trashPath;
    run.entries.back().identity = arrived.identity;
    run.report.movedToTrash += step.request.size;
    run.report.deletedPaths.push_back(step.request.path);
    if (!step.intent.move.remark.empty())
        run.report.remarks.push_back({Uuid::random(), step.request.path, step.intent.move.remark});
    return arrived.leftBehind ? std::optional(reason(*arrived.leftBehind, m_tables)) : std::nullopt;
}

std::optional<std::string> DeletionExecutor::removeForGood(const Step& step, const PinnedEntry& pinned,
                                                           const BeforeMove& before, ExecutedRun& run,
                                                           const std::stop_token& stop) {
    const RemovalOutcome outcome = m_removal.remove(pinned, step.intent.move, before, stop);
    if (!outcome.failure) {
        run.journal->close(step.intent.entry.id);
        run.entries.push_back(step.intent.entry);
        run.report.freed += step.request.size;
        run.report.deletedPaths.push_back(step.request.path);
        return std::nullopt;
    }
    if (outcome.isPartly) {
        HistoryEntry part = step.intent.entry;
        // Counting each file as it goes would cost a look at each.
        part.size = std::max<std::int64_t>(step.request.size - measureTree(outcome.rest).bytes, 0);
        run.report.freed += part.size;
        Intent done = step.intent;
        done.entry = part;
        done.isDone = true;
        (void)run.journal->note({&done, 1});
        run.parts.push_back(std::move(part));
    } else if (outcome.rest.empty() || outcome.rest == pinned.resolvedPath()) {
        run.journal->drop(step.intent.entry.id);
    }
    return reason(*outcome.failure, m_tables) + stayedText(outcome, pinned.resolvedPath());
}

} // namespace brimlet
