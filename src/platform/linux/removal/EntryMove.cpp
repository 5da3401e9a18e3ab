#include "platform/linux/removal/EntryMove.h"

#include "core/Localized.h"
#include "core/walk/MeasureTree.h"
#include "platform/linux/KeptIdentity.h"
#include "platform/linux/removal/DiskSync.h"
#include "platform/linux/removal/ExclusiveRename.h"
#include "platform/linux/removal/FreeName.h"
#include "platform/linux/removal/NumberedName.h"
#include "platform/linux/removal/ReviewedEntry.h"
#include "platform/linux/removal/TreeCopier.h"
#include "platform/linux/removal/TreeRemover.h"
#include "platform/ScratchName.h"

#include <cerrno>
#include <fcntl.h>
#include <utility>

namespace brimlet {

namespace {

constexpr const char* copyName = "item"; // of the copy inside its scratch folder

std::string remarkOn(const CopyLosses& losses) {
    std::string remark;
    if (losses.attributes)
        remark = localized("The other disk can't store all of its attributes, so some were left out.");
    if (losses.hardLinks)
        remark += (remark.empty() ? "" : " ") +
                  localized("The other disk has no hard links, so its linked files are separate files now.");
    return remark;
}

/// For steps that mend something: a passing error must not stop them.
template <class Step>
int twice(Step step) {
    const int result = step();
    return result < 0 ? step() : result;
}

} // namespace

FileIdentity identityOf(const EntryIdentity& entry) {
    return std::to_string(entry.inode) + "-" + std::to_string(entry.bornSeconds) + "." +
           std::to_string(entry.bornNanoseconds);
}

EntryIdentity keptIdentity(FileSystemCalls& calls, int folder, const FileStatus& status) {
    FileStatus folderStatus;
    if (calls.status(folder, "", folderStatus) < 0)
        folderStatus.device = status.device;
    return KeptIdentity(calls, folder, folderStatus).of(status);
}

Result<std::string> returnToName(FileSystemCalls& calls, int folder, const std::string& aside,
                                 const std::string& name) {
    for (unsigned number = 1;; ++number) {
        std::string candidate = numberedName(name, number);
        const int result = twice([&] { return renameExclusively(calls, folder, aside, folder, candidate); });
        if (result == 0)
            return candidate;
        if (result != -EEXIST)
            return errorFromErrno(-result);
    }
}

Rest returnRest(FileSystemCalls& calls, const WalkedEntry& original, const std::string& aside,
                const PlatformError& failure) {
    const Result<std::string> returned =
        returnToName(calls, original.parent.folder.number(), aside, original.name);
    const std::string* name = std::get_if<std::string>(&returned);
    if (name != nullptr && *name == original.name)
        return {failure, original.path()};
    const std::string path = original.parent.pathOf(name != nullptr ? *name : aside);
    return {{ErrorDomain::posix, EEXIST, std::nullopt,
             localized("What could not be removed is now called") + " " + path},
            path};
}

std::string EntryMove::targetPath(const std::string& name) const {
    return m_target.pathOf(name);
}

Result<TrashArrival> EntryMove::perform(const std::string& name, NameChoice choice,
                                        const std::string& planned) {
    m_name = name;
    m_choice = choice;
    m_planned = planned;
    FileStatus status;
    const int found = m_calls.status(m_source.parent.folder.number(), m_source.name.c_str(), status);
    if (found < 0)
        return errorFromErrno(-found);
    if (m_source.reviewed && !m_source.reviewed->isOf(status.identity()))
        return changedSinceReview();
    if (status.isMountPoint || (status.isFolder() && m_mounts.holdsBelow(m_source.path())))
        return mountedInside();
    const PlannedMove plan{{}, identityOf(m_source.reviewed.value_or(status.identity())), {}, {}};
    Result<std::string> placed = place(m_source.parent.folder.number(), m_source.name, plan);
    const PlatformError* error = errorIn(placed);
    if (error == nullptr)
        return TrashArrival{targetPath(*std::get_if<std::string>(&placed)), m_arrived, {}};
    return error->code == EXDEV && error->domain == ErrorDomain::posix ? copyAcross() : *error;
}

/// The name to be tried next.
Result<std::string> EntryMove::nextName() {
    if (m_choice == NameChoice::exact)
        return m_name;
    if (!m_planned.empty())
        return std::exchange(m_planned, {});
    const Result<unsigned> number = freeNumber(m_calls, m_target.folder.number(), m_name, 0);
    if (const PlatformError* error = errorIn(number))
        return *error;
    return numberedName(m_name, *std::get_if<unsigned>(&number));
}

/// Renames an entry in under a name that the caller has noted. Gives the name.
Result<std::string> EntryMove::place(int folder, const std::string& name, PlannedMove plan) {
    for (;;) {
        Result<std::string> chosen = nextName();
        const auto* newName = std::get_if<std::string>(&chosen);
        if (newName == nullptr)
            return chosen;
        plan.destination = targetPath(*newName);
        if (auto refused = m_before(plan))
            return std::move(*refused);
        Failure failure = renameIn(folder, name, *newName);
        if (!failure) {
            m_arrived = plan.identity;
            return chosen;
        }
        if (*failure != errorFromErrno(EEXIST) || m_choice == NameChoice::exact)
            return std::move(*failure);
    }
}

/// The rename itself; the original is looked at right before it and right after it.
Failure EntryMove::renameIn(int folder, const std::string& name, const std::string& newName) {
    const bool isOriginal = folder == m_source.parent.folder.number();
    if (auto changed = isOriginal ? changeSinceReview(m_calls, m_source) : Failure())
        return changed;
    const int target = m_target.folder.number();
    const int result = renameExclusively(m_calls, folder, name, target, newName);
    if (result < 0)
        return errorFromErrno(-result);
    if (!isOriginal || !isAnotherThanReviewed(m_calls, m_source, target, newName))
        return std::nullopt;
    const int back = twice([&] { return renameExclusively(m_calls, target, newName, folder, name); });
    PlatformError changed = changedSinceReview();
    if (back < 0)
        changed.description += " " + localized("It is now called") + " " + targetPath(newName);
    return changed;
}

/// Why a copy would be made in vain.
Failure EntryMove::refusalOfCopy() {
    const int writable = m_calls.checkWritable(m_source.parent.folder.number());
    if (writable == -EROFS)
        return PlatformError{ErrorDomain::posix, EROFS, std::nullopt,
                             localized("Its disk is read-only, so it can't leave it.")};
    if (writable < 0)
        return errorFromErrno(-writable);
    DiskSpace space;
    if (m_calls.space(m_target.folder.number(), space) < 0 || space.total == 0)
        return std::nullopt; // not known beforehand
    if (measureTree(m_source.path()).bytes > space.available)
        return PlatformError{ErrorDomain::posix, ENOSPC, std::nullopt,
                             localized("There is not enough room for it on the other disk.")};
    return std::nullopt;
}

Result<TrashArrival> EntryMove::copyAcross() {
    if (auto refused = refusalOfCopy())
        return std::move(*refused);
    const std::string scratch = scratchName();
    const std::string aside = scratchName();
    PlannedMove plan{{}, {}, {targetPath(scratch)}, m_source.parent.path + "/" + aside};
    if (auto refused = m_before({{}, {}, plan.scratch, {}}))
        return std::move(*refused);
    const int made = m_calls.makeFolder(m_target.folder.number(), scratch.c_str(), 0700);
    if (made < 0)
        return errorFromErrno(-made);
    Result<Descriptor> opened = openForListing(m_calls, m_target.folder.number(), scratch.c_str());
    m_watch.emplace(m_calls, m_source.parent.folder.number(), m_source.name.c_str());
    Failure failure;
    CopyManifest manifest;
    std::string placedName;
    if (const auto* folder = std::get_if<Descriptor>(&opened)) {
        Result<std::string> placed = copyAndPlace(folder->number(), manifest, std::move(plan));
        if (const PlatformError* error = errorIn(placed))
            failure = *error;
        else
            placedName = valueOf(std::move(placed));
        if (!failure)
            failure = setOriginalAside(folder->number(), placedName, aside, manifest);
    } else {
        failure = *errorIn(opened);
    }
    Failure leftBehind;
    if (!failure)
        leftBehind = removeOriginal(aside, manifest);
    discard(scratch);
    if (failure)
        return std::move(*failure);
    return TrashArrival{targetPath(placedName), m_arrived, std::move(leftBehind)};
}

/// Copies the original into the scratch folder and gives the copy its name.
Result<std::string> EntryMove::copyAndPlace(int scratch, CopyManifest& manifest, PlannedMove plan) {
    TreeCopier copier(m_calls, manifest, m_stop);
    if (auto failure = copier.copy(m_source.parent.folder.number(), m_source.name, scratch, copyName))
        return std::move(*failure);
    // What served to find hard links goes before the copy counts as complete.
    if (auto failure = TreeRemover(m_calls).remove(scratch, TreeCopier::linksFolder);
        failure && failure != Failure(errorFromErrno(ENOENT)))
        return std::move(*failure);
    FileStatus copy;
    if (const int result = m_calls.status(scratch, copyName, copy); result < 0)
        return errorFromErrno(-result);
    plan.identity = identityOf(keptIdentity(m_calls, scratch, copy));
    plan.remark = remarkOn(copier.losses());
    return place(scratch, copyName, std::move(plan));
}

/// The step that takes the original out of its place. On an error the copy goes back into the scratch folder.
Failure EntryMove::setOriginalAside(int scratch, const std::string& placed, const std::string& aside,
                                    CopyManifest& manifest) {
    int result = syncTarget(scratch);
    Failure failure = result < 0 ? Failure(errorFromErrno(-result)) : changeSinceReview(m_calls, m_source);
    if (!failure) {
        result = renameAside(aside, manifest);
        if (result == 0)
            return std::nullopt;
        failure = errorFromErrno(-result);
    }
    twice([&] { return renameExclusively(m_calls, m_target.folder.number(), placed, scratch, copyName); });
    return failure;
}

/// The rename moves a file's own time of change on: it is compared just before, and what happens between the
/// two the watch sees. The times of what is in a folder stay; those are compared as each file goes.
int EntryMove::renameAside(const std::string& aside, CopyManifest& manifest) {
    const int folder = m_source.parent.folder.number();
    FileStatus status;
    int result = m_calls.status(folder, m_source.name.c_str(), status);
    if (result == 0 && !status.isFolder() && !manifest.holds(status))
        result = -EBUSY;
    if (result == 0)
        result = renameExclusively(m_calls, folder, m_source.name, folder, aside);
    if (result == -EXDEV) {
        m_staysInPlace = true;
        return 0;
    }
    if (result < 0 || status.isFolder())
        return result;
    if (m_calls.status(folder, aside.c_str(), status) < 0 || !manifest.holds(status) ||
        (m_watch && m_watch->sawChange()))
        manifest.forget();
    return 0;
}

/// Syncs the folder that has received the copy, and with it those above that were made for it.
int EntryMove::syncTarget(int scratch) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK;
    Descriptor folder(m_calls, m_calls.open(m_target.folder.number(), ".", flags));
    for (int above = m_target.made;; --above) {
        if (folder.number() == -EACCES) // it may not be read, so it is synced with its whole disk
            return m_calls.syncFileSystem(scratch);
        const int result = folder.isOpen() ? syncFolder(m_calls, folder.number()) : folder.number();
        if (result < 0 || above == 0)
            return result;
        folder = Descriptor(m_calls, m_calls.open(folder.number(), "..", flags));
    }
}

Failure EntryMove::removeOriginal(const std::string& aside, const CopyManifest& manifest) {
    const int folder = m_source.parent.folder.number();
    const Failure failure =
        TreeRemover(m_calls, {&manifest, {}, {}}).remove(folder, m_staysInPlace ? m_source.name : aside);
    return failure && !m_staysInPlace ? returnRest(m_calls, m_source, aside, *failure).error : failure;
}

void EntryMove::discard(const std::string& scratch) {
    twice([&] { return TreeRemover(m_calls).remove(m_target.folder.number(), scratch) ? -1 : 0; });
}

} // namespace brimlet
