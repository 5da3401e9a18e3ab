#include "platform/linux/LinuxFileRemoval.h"

#include "core/Localized.h"
#include "core/Paths.h"
#include "platform/linux/EntryMove.h"
#include "platform/linux/ExclusiveRename.h"
#include "platform/linux/PathWalk.h"
#include "platform/linux/ScratchName.h"
#include "platform/linux/TrashFolder.h"
#include "platform/linux/TreeRemover.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace brimlet {

namespace {

class LinuxPinnedEntry : public PinnedEntry {
public:
    explicit LinuxPinnedEntry(WalkedEntry entry)
        : m_entry(std::move(entry))
        , m_path(m_entry.path()) {}

    const std::string& resolvedPath() const override { return m_path; }
    const WalkedEntry& entry() const { return m_entry; }

private:
    WalkedEntry m_entry;
    std::string m_path;
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

bool isSameFolder(FileSystemCalls& calls, int one, int other) {
    FileStatus first;
    FileStatus second;
    return calls.status(one, "", first) == 0 && calls.status(other, "", second) == 0 &&
           first.isSameFile(second);
}

} // namespace

LinuxFileRemoval::LinuxFileRemoval(std::string homeFolder, FileSystemCalls& calls)
    : m_homeFolder(std::move(homeFolder))
    , m_calls(calls) {}

Result<std::unique_ptr<PinnedEntry>> LinuxFileRemoval::pin(std::string_view path) {
    Result<WalkedEntry> entry = walkToEntry(m_calls, path);
    if (const PlatformError* error = errorIn(entry))
        return *error;
    auto pinned = std::make_unique<LinuxPinnedEntry>(valueOf(std::move(entry)));
    const std::vector<std::string_view> components = pathComponents(pinned->resolvedPath());
    if (std::any_of(components.begin(), components.end(), isScratchName))
        return notOurs("This belongs to a removal that is under way.");
    return pinned;
}

// A folder is set aside by one rename before anything in it is removed. When that is not permitted, nothing
// has been lost; when the process dies, the rest is found under the noted name.
Failure LinuxFileRemoval::remove(const PinnedEntry& pinned, const BeforeMove& before) {
    const WalkedEntry& entry = walked(pinned);
    const int folder = entry.parent.folder.number();
    FileStatus status;
    if (const int result = m_calls.status(folder, entry.name.c_str(), status); result < 0)
        return errorFromErrno(-result);
    if (status.isMountPoint)
        return mountedInside();
    TreeRemover remover(m_calls);
    if (!status.isFolder()) {
        if (auto refused = before({{}, identityOf(status), {}, {}}))
            return refused;
        return remover.remove(folder, entry.name);
    }
    const WalkedEntry aside{{Descriptor(), entry.parent.path}, scratchName()};
    if (auto refused = before({{}, identityOf(status), {aside.path()}, {}}))
        return refused;
    if (const int result = renameExclusively(m_calls, folder, entry.name, folder, aside.name); result < 0)
        return errorFromErrno(-result);
    const Failure failure = remover.remove(folder, aside.name);
    return failure ? returnRest(m_calls, entry, aside.name, *failure) : failure;
}

Result<TrashArrival> LinuxFileRemoval::moveToTrash(const PinnedEntry& pinned, const BeforeMove& before) {
    const Result<WalkedFolder> trash = openTrash(m_calls, m_homeFolder);
    if (const PlatformError* error = errorIn(trash))
        return *error;
    const WalkedEntry& entry = walked(pinned);
    if (isSameFolder(m_calls, entry.parent.folder.number(),
                     std::get_if<WalkedFolder>(&trash)->folder.number()))
        return notOurs("It is in the Trash already.");
    return EntryMove(m_calls, entry, *std::get_if<WalkedFolder>(&trash), before)
        .perform(entry.name, NameChoice::numbered);
}

Failure LinuxFileRemoval::moveBack(std::string_view trashPath, std::string_view originalPath,
                                   const BeforeMove& before) {
    const Result<WalkedFolder> trash = openTrash(m_calls, m_homeFolder);
    const Result<WalkedEntry> source = walkToEntry(m_calls, trashPath);
    if (const PlatformError* error = errorIn(trash) != nullptr ? errorIn(trash) : errorIn(source))
        return *error;
    const WalkedEntry& entry = *std::get_if<WalkedEntry>(&source);
    if (!isSameFolder(m_calls, entry.parent.folder.number(),
                      std::get_if<WalkedFolder>(&trash)->folder.number()))
        return notOurs("The item is not in the Trash.");
    FileStatus status;
    if (const int result = m_calls.status(entry.parent.folder.number(), entry.name.c_str(), status);
        result < 0)
        return errorFromErrno(-result);
    const Result<WalkedEntry> target = walkToEntry(m_calls, originalPath, MissingFolders::make);
    if (const PlatformError* error = errorIn(target))
        return *error;
    const WalkedEntry& place = *std::get_if<WalkedEntry>(&target);
    const Result<TrashArrival> moved =
        EntryMove(m_calls, entry, place.parent, before).perform(place.name, NameChoice::exact);
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
    return identityOf(status);
}

Failure LinuxFileRemoval::removeScratch(std::string_view path) {
    const Result<WalkedEntry> entry = walkToEntry(m_calls, path);
    if (const PlatformError* error = errorIn(entry))
        return *error;
    const auto& scratch = *std::get_if<WalkedEntry>(&entry);
    if (!isScratchName(scratch.name))
        return notOurs("This is not left over from a removal.");
    const Failure failure = TreeRemover(m_calls).remove(scratch.parent.folder.number(), scratch.name);
    return failure ? unlessGone(*failure) : std::nullopt;
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
