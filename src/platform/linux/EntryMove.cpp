#include "platform/linux/EntryMove.h"

#include "core/Localized.h"
#include "platform/linux/ExclusiveRename.h"
#include "platform/linux/MountPoints.h"
#include "platform/linux/NumberedName.h"
#include "platform/linux/ScratchName.h"
#include "platform/linux/TreeCopier.h"
#include "platform/linux/TreeRemover.h"

#include <cerrno>
#include <fcntl.h>

namespace brimlet {

namespace {

constexpr const char* copyName = "item"; // of the copy inside its scratch folder

/// For steps that mend something: a passing error must not stop them.
template <class Step>
int twice(Step step) {
    const int result = step();
    return result < 0 ? step() : result;
}

} // namespace

FileIdentity identityOf(const FileStatus& status) {
    return std::to_string(status.inode) + "-" + std::to_string(status.born.tv_sec) + "." +
           std::to_string(status.born.tv_nsec);
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

PlatformError returnRest(FileSystemCalls& calls, const WalkedEntry& original, const std::string& aside,
                         const PlatformError& failure) {
    const Result<std::string> returned =
        returnToName(calls, original.parent.folder.number(), aside, original.name);
    const std::string* name = std::get_if<std::string>(&returned);
    if (name != nullptr && *name == original.name)
        return failure;
    const WalkedEntry rest{{Descriptor(), original.parent.path}, name != nullptr ? *name : aside};
    return {ErrorDomain::posix, EEXIST, std::nullopt,
            localized("What could not be removed is now called") + " " + rest.path()};
}

std::string EntryMove::targetPath(const std::string& name) const {
    return (m_target.path == "/" ? "" : m_target.path) + "/" + name;
}

Result<TrashArrival> EntryMove::perform(const std::string& name, NameChoice choice) {
    m_name = name;
    m_choice = choice;
    FileStatus status;
    const int found = m_calls.status(m_source.parent.folder.number(), m_source.name.c_str(), status);
    if (found < 0)
        return errorFromErrno(-found);
    if (status.isMountPoint || (status.isFolder() && holdsMountPoint(m_source.path())))
        return mountedInside();
    const PlannedMove plan{{}, identityOf(status), {}, {}};
    Result<std::string> placed = place(m_source.parent.folder.number(), m_source.name, plan);
    const PlatformError* error = errorIn(placed);
    if (error == nullptr)
        return TrashArrival{targetPath(*std::get_if<std::string>(&placed)), {}};
    return error->code == EXDEV && error->domain == ErrorDomain::posix ? copyAcross() : *error;
}

Result<std::string> EntryMove::freeName() {
    for (;; ++m_number) {
        std::string candidate = numberedName(m_name, m_number);
        FileStatus status;
        const int result = m_calls.status(m_target.folder.number(), candidate.c_str(), status);
        if (result == -ENOENT)
            return candidate;
        if (result < 0)
            return errorFromErrno(-result);
    }
}

/// Renames an entry in under a name that the caller has noted. Gives the name.
Result<std::string> EntryMove::place(int folder, const std::string& name, PlannedMove plan) {
    for (;;) {
        Result<std::string> chosen = m_choice == NameChoice::exact ? m_name : freeName();
        const auto* newName = std::get_if<std::string>(&chosen);
        if (newName == nullptr)
            return chosen;
        plan.destination = targetPath(*newName);
        if (auto refused = m_before(plan))
            return std::move(*refused);
        const int result = renameExclusively(m_calls, folder, name, m_target.folder.number(), *newName);
        if (result == 0)
            return chosen;
        if (result != -EEXIST || m_choice == NameChoice::exact)
            return errorFromErrno(-result);
    }
}

Result<TrashArrival> EntryMove::copyAcross() {
    const std::string scratch = scratchName();
    const std::string aside = scratchName();
    PlannedMove plan{{}, {}, {targetPath(scratch)}, m_source.parent.path + "/" + aside};
    if (auto refused = m_before({{}, {}, plan.scratch, {}}))
        return std::move(*refused);
    const int made = m_calls.makeFolder(m_target.folder.number(), scratch.c_str(), 0700);
    if (made < 0)
        return errorFromErrno(-made);
    Result<Descriptor> opened = openForListing(m_calls, m_target.folder.number(), scratch.c_str());
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
            failure = setOriginalAside(folder->number(), placedName, aside);
    } else {
        failure = *errorIn(opened);
    }
    Failure leftBehind;
    if (!failure)
        leftBehind = removeOriginal(aside, manifest);
    discard(scratch);
    if (failure)
        return std::move(*failure);
    return TrashArrival{targetPath(placedName), std::move(leftBehind)};
}

/// Copies the original into the scratch folder, syncs the copy and gives it its name.
Result<std::string> EntryMove::copyAndPlace(int scratch, CopyManifest& manifest, PlannedMove plan) {
    TreeCopier copier(m_calls, manifest);
    if (auto failure = copier.copy(m_source.parent.folder.number(), m_source.name, scratch, copyName))
        return std::move(*failure);
    // What served to find hard links goes before the copy counts as complete.
    if (auto failure = TreeRemover(m_calls).remove(scratch, TreeCopier::linksFolder);
        failure && failure != Failure(errorFromErrno(ENOENT)))
        return std::move(*failure);
    FileStatus copy;
    int result = m_calls.status(scratch, copyName, copy);
    if (result == 0)
        result = m_calls.syncFileSystem(scratch);
    if (result < 0)
        return errorFromErrno(-result);
    plan.identity = identityOf(copy);
    return place(scratch, copyName, std::move(plan));
}

/// The step that takes the original out of its place. On an error the copy goes back into the scratch folder.
Failure EntryMove::setOriginalAside(int scratch, const std::string& placed, const std::string& aside) {
    const int folder = m_source.parent.folder.number();
    int result = m_calls.syncFileSystem(scratch);
    if (result == 0)
        result = renameExclusively(m_calls, folder, m_source.name, folder, aside);
    if (result == 0)
        return std::nullopt;
    twice([&] { return renameExclusively(m_calls, m_target.folder.number(), placed, scratch, copyName); });
    return errorFromErrno(-result);
}

Failure EntryMove::removeOriginal(const std::string& aside, const CopyManifest& manifest) {
    const int folder = m_source.parent.folder.number();
    const Failure failure = TreeRemover(m_calls, &manifest).remove(folder, aside);
    return failure ? returnRest(m_calls, m_source, aside, *failure) : failure;
}

void EntryMove::discard(const std::string& scratch) {
    twice([&] { return TreeRemover(m_calls).remove(m_target.folder.number(), scratch) ? -1 : 0; });
}

} // namespace brimlet
