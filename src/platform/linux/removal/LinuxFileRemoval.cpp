#include "platform/linux/removal/LinuxFileRemoval.h"

#include "core/Localized.h"
#include "core/Paths.h"
#include "platform/linux/PathWalk.h"
#include "platform/linux/removal/EntryMove.h"
#include "platform/linux/removal/ExclusiveRename.h"
#include "platform/linux/removal/FreeName.h"
#include "platform/linux/removal/NumberedName.h"
#include "platform/linux/removal/ReviewedEntry.h"
#include "platform/linux/removal/TrashFolder.h"
#include "platform/ScratchName.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <sys/stat.h>
#include <utility>

namespace brimlet {

namespace {

/// For how long a folder that was opened stands for what its path leads to: no longer than a thread may have
/// to wait for a core between two calls.
constexpr std::chrono::milliseconds moment(10);

using Clock = std::chrono::steady_clock;

class LinuxPinnedEntry : public PinnedEntry {
public:
    /// askedFolder      as the path of the entry calls it
    /// folderIdentity   as it was reviewed
    LinuxPinnedEntry(WalkedEntry entry, std::string_view askedFolder, const EntryIdentity& folderIdentity,
                     Clock::time_point opened)
        : m_entry(std::move(entry))
        , m_path(m_entry.path())
        , m_askedFolder(askedFolder)
        , m_folderIdentity(folderIdentity)
        , m_opened(opened) {}

    const std::string& resolvedPath() const override { return m_path; }
    const WalkedEntry& entry() const { return m_entry; }
    Clock::time_point opened() const { return m_opened; }

    bool isIn(std::string_view askedFolder, const EntryIdentity& folderIdentity) const {
        return m_askedFolder == askedFolder && m_folderIdentity == folderIdentity &&
               Clock::now() - m_opened < moment;
    }

private:
    WalkedEntry m_entry;
    std::string m_path;
    std::string m_askedFolder;
    EntryIdentity m_folderIdentity;
    Clock::time_point m_opened;
};

const WalkedEntry& walked(const PinnedEntry& entry) {
    return static_cast<const LinuxPinnedEntry&>(entry).entry(); // all entries come from pin()
}

PlatformError notOurs(std::string_view sentence) {
    return {ErrorDomain::posix, EINVAL, std::nullopt, localized(sentence)};
}

/// What is gone already needs no tidying.
Failure unlessGone(const PlatformError& error) {
    return error == errorFromErrno(ENOENT) ? std::nullopt : Failure(error);
}

/// The plan by which an entry is removed: the one made before where it is still of this entry.
PlannedMove removalPlan(const WalkedEntry& entry, const EntryIdentity& reviewed, const PlannedMove& planned) {
    PlannedMove plan{{}, identityOf(reviewed), {}, {}};
    if (!S_ISDIR(reviewed.type))
        return plan;
    const std::string_view aside = lastPathComponent(planned.setAside);
    plan.setAside = entry.parent.pathOf(isScratchName(aside) ? std::string(aside) : scratchName());
    return plan;
}

/// Whether an entry's place holds what was reviewed, whose status is then given.
bool isReviewed(FileSystemCalls& calls, const WalkedEntry& entry, const PlacedIdentity& reviewed,
                FileStatus& status) {
    const int folder = entry.parent.folder.number();
    FileStatus parent;
    return calls.status(folder, "", parent) == 0 && reviewed.folder.isOf(parent.identity()) &&
           calls.status(folder, entry.name.c_str(), status) == 0 && reviewed.entry.isOf(status.identity());
}

RemovalOutcome refusal(Failure why) {
    RemovalOutcome outcome;
    outcome.failure = std::move(why);
    return outcome;
}

RemovalOutcome outcomeOf(const TreeRemover& remover, const Failure& failure, std::string rest) {
    return {failure, failure && remover.hasRemoved(), std::move(rest), remover.stayed(),
            remover.stayedCount()};
}

bool isSameFolder(FileSystemCalls& calls, int one, int other) {
    FileStatus first;
    FileStatus second;
    return calls.status(one, "", first) == 0 && calls.status(other, "", second) == 0 &&
           first.isSameFile(second);
}

} // namespace

LinuxFileRemoval::LinuxFileRemoval(std::string homeFolder, FileSystemCalls& calls, RemovalThreads threads)
    : m_homeFolder(std::move(homeFolder))
    , m_calls(calls)
    , m_threads(threads) {}

Result<std::unique_ptr<PinnedEntry>>
LinuxFileRemoval::pin(std::string_view path, const PlacedIdentity& reviewed, const PinnedEntry* neighbour) {
    const auto* beside = static_cast<const LinuxPinnedEntry*>(neighbour);
    const std::string_view name = lastPathComponent(path);
    const std::string_view askedFolder = path.substr(0, path.size() - name.size());
    Clock::time_point opened = Clock::now();
    WalkedEntry entry;
    if (beside != nullptr && !name.empty() && !refusalOfForm(path) &&
        beside->isIn(askedFolder, reviewed.folder)) {
        entry = {beside->entry().parent, std::string(name), reviewed.entry};
        opened = beside->opened();
    } else {
        Result<WalkedEntry> walk = walkToEntry(m_calls, path);
        if (const PlatformError* error = errorIn(walk))
            return *error;
        entry = valueOf(std::move(walk));
        entry.reviewed = reviewed.entry;
        FileStatus folder;
        if (const int result = m_calls.status(entry.parent.folder.number(), "", folder); result < 0)
            return errorFromErrno(-result);
        if (!reviewed.folder.isOf(folder.identity()))
            return changedSinceReview();
    }
    // What is no folder is looked at by each step that it goes through.
    if (auto changed = S_ISDIR(reviewed.entry.type) ? changeSinceReview(m_calls, entry) : Failure())
        return std::move(*changed);
    auto pinned = std::make_unique<LinuxPinnedEntry>(std::move(entry), askedFolder, reviewed.folder, opened);
    const std::vector<std::string_view> components = pathComponents(pinned->resolvedPath());
    if (std::any_of(components.begin(), components.end(), isScratchName))
        return notOurs("This belongs to a removal that is under way.");
    return pinned;
}

PlannedMove LinuxFileRemoval::planRemoval(std::string_view path, const PlacedIdentity& reviewed) {
    if (!S_ISDIR(reviewed.entry.type)) // looked at in its turn; until then no name has to be found for it
        return removalPlan({}, reviewed.entry, {});
    const Result<WalkedEntry> walked = walkToEntry(m_calls, path);
    const auto* entry = std::get_if<WalkedEntry>(&walked);
    FileStatus status;
    if (entry == nullptr || !isReviewed(m_calls, *entry, reviewed, status))
        return {};
    return removalPlan(*entry, reviewed.entry, {});
}

PlannedMove LinuxFileRemoval::planTrashing(std::string_view path, const PlacedIdentity& reviewed,
                                           PlannedNumbers& numbers) {
    const Result<WalkedEntry> walked = walkToEntry(m_calls, path);
    const auto* entry = std::get_if<WalkedEntry>(&walked);
    FileStatus status;
    if (entry == nullptr || !isReviewed(m_calls, *entry, reviewed, status))
        return {};
    const Result<WalkedFolder> opened = openTrash(m_calls, m_homeFolder);
    const auto* trash = std::get_if<WalkedFolder>(&opened);
    if (trash == nullptr)
        return {};
    unsigned& last = numbers[entry->name];
    const Result<unsigned> number = freeNumber(m_calls, trash->folder.number(), entry->name, last);
    if (errorIn(number) != nullptr)
        return {};
    last = *std::get_if<unsigned>(&number);
    return {trash->pathOf(numberedName(entry->name, last)), identityOf(reviewed.entry), {}, {}};
}

RemovalOutcome LinuxFileRemoval::remove(const PinnedEntry& pinned, const PlannedMove& planned,
                                        const BeforeMove& before, const std::stop_token& stop) {
    const WalkedEntry& entry = walked(pinned);
    if (!S_ISDIR(entry.reviewed->type))
        return removeFile(entry, before);
    FileStatus status;
    if (const int result = m_calls.status(entry.parent.folder.number(), entry.name.c_str(), status);
        result < 0)
        return refusal(errorFromErrno(-result));
    if (status.isMountPoint || m_mounts.holdsBelow(entry.path()))
        return refusal(mountedInside());
    PlannedMove plan = removalPlan(entry, *entry.reviewed, planned);
    const bool isNoted = !before(plan);
    if (!isNoted) { // without a note nobody would find what is set aside
        plan.setAside.clear();
        if (auto refused = before(plan))
            return refusal(std::move(refused));
    }
    if (auto changed = changeSinceReview(m_calls, entry))
        return refusal(std::move(changed));
    if (!isNoted)
        return removeInPlace(entry, stop);
    return removeSetAside(entry, std::string(lastPathComponent(plan.setAside)), stop);
}

/// What is no folder. It is looked at once, as the last thing before it goes.
RemovalOutcome LinuxFileRemoval::removeFile(const WalkedEntry& entry, const BeforeMove& before) {
    if (auto refused = before(removalPlan(entry, *entry.reviewed, {})))
        return refusal(std::move(refused));
    const int folder = entry.parent.folder.number();
    FileStatus status;
    int result = m_calls.status(folder, entry.name.c_str(), status);
    if (result < 0)
        return refusal(errorFromErrno(-result));
    if (!entry.reviewed->isOf(status.identity()))
        return refusal(changedSinceReview());
    if (status.isMountPoint)
        return refusal(mountedInside());
    result = m_calls.unlink(folder, entry.name.c_str(), 0);
    return refusal(result < 0 ? Failure(errorFromErrno(-result)) : std::nullopt);
}

RemovalOutcome LinuxFileRemoval::removeInPlace(const WalkedEntry& entry, const std::stop_token& stop) {
    TreeRemover remover(m_calls, {nullptr, m_threads, stop, entry.reviewed});
    const Failure failure = remover.remove(entry.parent.folder.number(), entry.name);
    return outcomeOf(remover, failure, entry.path());
}

// A folder is set aside by one rename before anything in it is removed. When that is not permitted, nothing
// has been lost; when the process dies, the rest is found under the noted name.
RemovalOutcome LinuxFileRemoval::removeSetAside(const WalkedEntry& entry, const std::string& aside,
                                                const std::stop_token& stop) {
    const int folder = entry.parent.folder.number();
    TreeRemover remover(m_calls, {nullptr, m_threads, stop});
    const int result = renameExclusively(m_calls, folder, entry.name, folder, aside);
    if (result == -EXDEV) // a file system that can't rename this folder
        return removeInPlace(entry, stop);
    if (result < 0)
        return refusal(errorFromErrno(-result));
    if (isAnotherThanReviewed(m_calls, entry, folder, aside))
        return outcomeOf(remover, changedSinceReview(),
                         returnRest(m_calls, entry, aside, changedSinceReview()).path);
    const Failure failure = remover.remove(folder, aside);
    return outcomeOf(remover, failure,
                     failure ? returnRest(m_calls, entry, aside, *failure).path : std::string());
}

Result<TrashArrival> LinuxFileRemoval::moveToTrash(const PinnedEntry& pinned, const PlannedMove& planned,
                                                   const BeforeMove& before, const std::stop_token& stop) {
    const Result<WalkedFolder> opened = openTrash(m_calls, m_homeFolder);
    if (const PlatformError* error = errorIn(opened))
        return *error;
    const WalkedEntry& entry = walked(pinned);
    const WalkedFolder& trash = *std::get_if<WalkedFolder>(&opened);
    if (isSameFolder(m_calls, entry.parent.folder.number(), trash.folder.number()))
        return notOurs("It is in the Trash already.");
    const std::string name(lastPathComponent(planned.destination));
    const bool isInTrash = !name.empty() && planned.destination == trash.pathOf(name);
    return EntryMove(m_calls, m_mounts, entry, trash, before, stop)
        .perform(entry.name, NameChoice::numbered, isInTrash ? name : std::string());
}

Failure LinuxFileRemoval::moveBack(std::string_view trashPath, std::string_view originalPath,
                                   const std::optional<FileIdentity>& arrived, const BeforeMove& before) {
    const Result<WalkedFolder> trash = openTrash(m_calls, m_homeFolder);
    Result<WalkedEntry> source = walkToEntry(m_calls, trashPath);
    if (const PlatformError* error = errorIn(trash) != nullptr ? errorIn(trash) : errorIn(source))
        return *error;
    WalkedEntry& entry = *std::get_if<WalkedEntry>(&source);
    if (!isSameFolder(m_calls, entry.parent.folder.number(),
                      std::get_if<WalkedFolder>(&trash)->folder.number()))
        return notOurs("The item is not in the Trash.");
    FileStatus status;
    if (const int result = m_calls.status(entry.parent.folder.number(), entry.name.c_str(), status);
        result < 0)
        return errorFromErrno(-result);
    entry.reviewed = keptIdentity(m_calls, entry.parent.folder.number(), status);
    if (arrived && *arrived != identityOf(*entry.reviewed))
        return notOurs("Something else has its name in the Trash now.");
    const Result<WalkedEntry> target = walkToEntry(m_calls, originalPath, MissingFolders::make);
    if (const PlatformError* error = errorIn(target))
        return *error;
    const WalkedEntry& place = *std::get_if<WalkedEntry>(&target);
    const Result<TrashArrival> moved =
        EntryMove(m_calls, m_mounts, entry, place.parent, before).perform(place.name, NameChoice::exact);
    const PlatformError* error = errorIn(moved);
    return error != nullptr ? Failure(*error) : std::nullopt;
}

Result<std::optional<FileIdentity>> LinuxFileRemoval::identity(std::string_view path) {
    const Result<WalkedEntry> entry = walkToEntry(m_calls, path);
    if (const PlatformError* error = errorIn(entry))
        return *error;
    const auto& walkedEntry = *std::get_if<WalkedEntry>(&entry);
    FileStatus status;
    const int result = m_calls.status(walkedEntry.parent.folder.number(), walkedEntry.name.c_str(), status);
    if (result == -ENOENT)
        return std::nullopt;
    if (result < 0)
        return errorFromErrno(-result);
    return identityOf(keptIdentity(m_calls, walkedEntry.parent.folder.number(), status));
}

Failure LinuxFileRemoval::removeScratch(std::string_view path, const std::stop_token& stop) {
    const Result<WalkedEntry> entry = walkToEntry(m_calls, path);
    if (const PlatformError* error = errorIn(entry))
        return *error;
    const auto& scratch = *std::get_if<WalkedEntry>(&entry);
    if (!isScratchName(scratch.name))
        return notOurs("This is not left over from a removal.");
    const Failure failure =
        TreeRemover(m_calls, {nullptr, m_threads, stop}).remove(scratch.parent.folder.number(), scratch.name);
    return failure ? unlessGone(*failure) : std::nullopt;
}

Failure LinuxFileRemoval::dropOldName(std::string_view oldPath, std::string_view newPath) {
    const Result<WalkedEntry> one = walkToEntry(m_calls, oldPath);
    const Result<WalkedEntry> other = walkToEntry(m_calls, newPath);
    const auto* from = std::get_if<WalkedEntry>(&one);
    const auto* to = std::get_if<WalkedEntry>(&other);
    if (from == nullptr || to == nullptr)
        return std::nullopt;
    FileStatus left;
    FileStatus arrived;
    const int folder = from->parent.folder.number();
    if (m_calls.status(folder, from->name.c_str(), left) < 0 ||
        m_calls.status(to->parent.folder.number(), to->name.c_str(), arrived) < 0 ||
        !left.isSameFile(arrived) || left.isFolder() || left.links < 2)
        return std::nullopt;
    const int result = m_calls.unlink(folder, from->name.c_str(), 0);
    return result < 0 ? Failure(errorFromErrno(-result)) : std::nullopt;
}

Failure LinuxFileRemoval::returnToPlace(std::string_view setAside, std::string_view originalPath) {
    const Result<WalkedEntry> entry = walkToEntry(m_calls, setAside);
    if (const PlatformError* error = errorIn(entry))
        return *error;
    const auto& aside = *std::get_if<WalkedEntry>(&entry);
    const std::vector<std::string_view> components = pathComponents(originalPath);
    if (!isScratchName(aside.name) || components.empty())
        return notOurs("This is not left over from a removal.");
    const Result<std::string> name =
        returnToName(m_calls, aside.parent.folder.number(), aside.name, std::string(components.back()));
    const PlatformError* error = errorIn(name);
    return error != nullptr ? unlessGone(*error) : std::nullopt;
}

} // namespace brimlet
