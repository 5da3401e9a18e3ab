#include "platform/linux/removal/TreeRemover.h"

#include "core/Localized.h"
#include "platform/FileRemoval.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brimlet {

namespace {

// File systems may leave out entries while a folder shrinks, and others may fill it: it is listed again, but
// not for ever.
constexpr int mostPasses = 8;

constexpr std::size_t mostNames = 3;   // that are told of what stayed
constexpr int otherDevice = -EXDEV;    // stands for mountedInside()
constexpr int stopped = -ECANCELED;    // stands for stoppedByUser()
constexpr int anotherFolder = -ESTALE; // stands for changedSinceReview()
constexpr int laterAsFolder = 1;       // an entry that proved to be a folder
constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK;

PlatformError errorOf(int result) {
    if (result == otherDevice)
        return mountedInside();
    if (result == anotherFolder)
        return changedSinceReview();
    return result == stopped ? stoppedByUser() : errorFromErrno(-result);
}

/// The way from the top of the tree to an entry.
std::string pathInTree(const EmptiedFolder& above, const std::string& name) {
    std::string path = name;
    for (const EmptiedFolder* folder = &above; folder->depth > 1; folder = folder->above.get())
        path.insert(0, folder->name + "/");
    return path;
}

} // namespace

PlatformError mountedInside() {
    return {ErrorDomain::posix, EXDEV, std::nullopt,
            localized("Another disk is mounted here. Eject it first.")};
}

PlatformError stoppedByUser() {
    return {ErrorDomain::posix, ECANCELED, std::nullopt, localized("Stopped before all of it was removed.")};
}

int permitOwner(FileSystemCalls& calls, int folder, const FileStatus& status) {
    if (status.owner != geteuid() || (status.mode & S_IRWXU) == S_IRWXU)
        return -EACCES;
    return calls.setModeOfPath(folder, (status.mode & 07777) | S_IRWXU);
}

RemovalThreads usualRemovalThreads() {
    constexpr std::size_t useful = 8; // more only wait for each other
    RemovalThreads threads;
    cpu_set_t processors;
    CPU_ZERO(&processors);
    if (sched_getaffinity(0, sizeof processors, &processors) == 0)
        threads.most = std::clamp<std::size_t>(static_cast<std::size_t>(CPU_COUNT(&processors)), 1, useful);
    return threads;
}

TreeRemover::TreeRemover(FileSystemCalls& calls, RemovalTerms terms)
    : m_calls(calls)
    , m_terms(std::move(terms))
    , m_stacks(m_terms.threads.most) {
    m_hands.reserve(m_terms.threads.most); // they stay where they are
}

Failure TreeRemover::remove(int parent, const std::string& name) {
    FileStatus status;
    if (const int result = m_calls.status(parent, name.c_str(), status); result < 0)
        return errorFromErrno(-result);
    if (status.isMountPoint)
        return mountedInside();
    m_device = status.device;
    m_hands.push_back({0, FolderListing(m_calls)});
    if (!status.isFolder())
        return removeFile(parent, name);
    removeFolder(parent, name);
    return m_failure;
}

Failure TreeRemover::removeFile(int parent, const std::string& name) {
    if (!mayRemove(parent, name.c_str()))
        return errorFromErrno(EBUSY);
    if (const int result = m_calls.unlink(parent, name.c_str(), 0); result < 0)
        return errorFromErrno(-result);
    ++m_hands.front().removed;
    return std::nullopt;
}

void TreeRemover::removeFolder(int parent, const std::string& name) {
    const auto top = std::make_shared<EmptiedFolder>();
    const int opened = m_calls.open(parent, ".", O_PATH | O_DIRECTORY);
    if (opened < 0)
        return fail(*top, name, opened);
    top->opened = std::make_shared<const Descriptor>(m_calls, opened);
    enter(m_hands.front(), {top, top->opened, {name}});
    work(m_hands.front());
    for (std::thread& thread : m_threads)
        thread.join();
}

bool TreeRemover::hasRemoved() const {
    return std::any_of(m_hands.begin(), m_hands.end(), [](const Hand& hand) { return hand.removed > 0; });
}

void TreeRemover::work(Hand& hand) {
    while (const auto job = m_stacks.take(hand.number))
        enter(hand, *job);
}

void TreeRemover::callOthers() {
    try {
        for (std::size_t number = 1; number < m_terms.threads.most; ++number) {
            m_hands.push_back({number, FolderListing(m_calls)});
            m_threads.emplace_back([this, &hand = m_hands.back()] { work(hand); });
        }
    } catch (const std::system_error&) { // those that are here do it
    }
}

void TreeRemover::fail(EmptiedFolder& above, const std::string& name, int result) {
    m_stacks.lose(above);
    const std::lock_guard lock(m_mutex);
    if (!m_failure || result == stopped)
        m_failure = errorOf(result);
    if (result == stopped || above.depth == 0)
        return;
    if (m_stayedCount++ < mostNames)
        m_stayed.push_back(pathInTree(above, name));
}

bool TreeRemover::isStopped(EmptiedFolder& folder) {
    if (!m_terms.stop.stop_requested())
        return false;
    fail(folder, {}, stopped);
    return true;
}

bool TreeRemover::mayRemove(int folder, const char* name) {
    if (m_terms.copied == nullptr)
        return true;
    FileStatus status;
    const int result = m_calls.status(folder, name, status);
    if (result < 0)
        return false;
    return status.isFolder() || m_terms.copied->holds(status);
}

/// Tries once for permission in a folder that is being emptied. Whether it has been given.
bool TreeRemover::permit(EmptiedFolder& folder, int opened) {
    using Permission = EmptiedFolder::Permission;
    if (folder.depth == 0)
        return false;
    const std::lock_guard lock(m_mutex);
    if (folder.permission == Permission::untried)
        folder.permission =
            permitOwner(m_calls, opened, folder.status) == 0 ? Permission::given : Permission::refused;
    return folder.permission == Permission::given;
}

int TreeRemover::unlink(EmptiedFolder& folder, int opened, const char* name, int flags) {
    int result = m_calls.unlink(opened, name, flags);
    if (result == -EACCES && permit(folder, opened))
        result = m_calls.unlink(opened, name, flags);
    return result;
}

int TreeRemover::checkFolder(int folder, FileStatus& status) {
    const int result = m_calls.status(folder, "", status);
    if (result == 0 && (status.isMountPoint || status.device != m_device))
        return otherDevice;
    return result;
}

int TreeRemover::openFolder(const FolderJob& job) {
    const int above = job.opened->number();
    const char* name = job.folder.name.c_str();
    int opened = m_calls.open(above, name, folderFlags);
    if (opened == -EACCES && permit(*job.above, above))
        opened = m_calls.open(above, name, folderFlags);
    if (opened != -EACCES)
        return opened;
    const int pinned = m_calls.open(above, name, O_PATH | O_DIRECTORY | O_NOFOLLOW);
    if (pinned < 0)
        return opened;
    const Descriptor folder(m_calls, pinned);
    FileStatus status;
    if (const int result = checkFolder(pinned, status); result < 0)
        return result;
    if (permitOwner(m_calls, pinned, status) < 0)
        return opened;
    return m_calls.open(above, name, folderFlags);
}

void TreeRemover::enter(Hand& hand, const FolderJob& job) {
    if (isStopped(*job.above))
        return finish(hand, job.above);
    const int opened = openFolder(job);
    if (opened == -ELOOP || opened == -ENOTDIR)
        removeFormerFolder(hand, job);
    else if (opened < 0 && (opened != -ENOENT || job.above->depth == 0))
        fail(*job.above, job.folder.name, opened);
    if (opened < 0)
        return finish(hand, job.above);
    const auto folder = std::make_shared<EmptiedFolder>();
    folder->above = job.above;
    folder->name = job.folder.name;
    folder->depth = job.above->depth + 1;
    folder->passes = job.folder.passes;
    folder->opened = std::make_shared<const Descriptor>(m_calls, opened);
    int result = checkFolder(opened, folder->status);
    if (result == 0 && folder->depth == 1 && m_terms.reviewed &&
        !m_terms.reviewed->isOf(folder->status.identity()))
        result = anotherFolder;
    if (result < 0) {
        fail(*job.above, job.folder.name, result);
        return finish(hand, job.above);
    }
    m_stacks.closeFarAbove(*folder);
    const std::size_t left = m_stacks.add(hand.number, folder, empty(hand, *folder, opened));
    if (hand.number == 0 && m_hands.size() == 1 && m_terms.threads.most > 1 && left > 1 &&
        hand.removed >= m_terms.threads.entriesBefore)
        callOthers();
    finish(hand, folder);
}

/// What has become a link or a file since it was listed.
void TreeRemover::removeFormerFolder(Hand& hand, const FolderJob& job) {
    const int result = removeEntry(*job.above, job.opened->number(), job.folder.name.c_str());
    if (result == 0)
        ++hand.removed;
    else
        fail(*job.above, job.folder.name, result == laterAsFolder ? -EBUSY : result);
}

/// Removes what is no folder. Gives the folders.
std::vector<FolderToEnter> TreeRemover::empty(Hand& hand, EmptiedFolder& folder, int opened) {
    std::vector<FolderToEnter> folders;
    int count = 0;
    while ((count = hand.listing.readOn(opened)) > 0) {
        for (const ListedEntry& entry : hand.listing.batch()) {
            if (isStopped(folder))
                return {};
            const int result = entry.type == DT_DIR ? laterAsFolder : removeEntry(folder, opened, entry.name);
            if (result == laterAsFolder)
                folders.push_back({entry.name});
            else if (result == 0)
                ++hand.removed;
            else
                fail(folder, entry.name, result);
        }
    }
    if (count < 0)
        fail(*folder.above, folder.name, count);
    if (count < 0)
        m_stacks.lose(folder);
    return folders;
}

/// Removes what is no folder. Gone already counts as done.
int TreeRemover::removeEntry(EmptiedFolder& folder, int opened, const char* name) {
    if (!mayRemove(opened, name))
        return -EBUSY;
    const int result = unlink(folder, opened, name, 0);
    if (result == -ENOENT)
        return 0;
    FileStatus status;
    const bool mayBeFolder = result == -EISDIR || result == -EPERM; // some systems say EPERM for a folder
    if (mayBeFolder && m_calls.status(opened, name, status) == 0 && status.isFolder())
        return laterAsFolder;
    return result;
}

void TreeRemover::finish(Hand& hand, FolderPointer folder) {
    while (m_stacks.release(*folder)) {
        if (!folder->above)
            return m_stacks.end();
        leave(hand, *folder);
        folder = folder->above;
    }
}

/// The folder above one that is done with, opened again if it has been closed.
std::shared_ptr<const Descriptor> TreeRemover::openedAbove(EmptiedFolder& folder) {
    EmptiedFolder& above = *folder.above;
    if (auto opened = m_stacks.opened(above))
        return opened;
    if (!folder.opened)
        return nullptr;
    const int number = m_calls.open(folder.opened->number(), "..", O_RDONLY | O_DIRECTORY | O_NONBLOCK);
    if (number < 0)
        return nullptr;
    auto opened = std::make_shared<const Descriptor>(m_calls, number);
    FileStatus status;
    if (m_calls.status(number, "", status) < 0 || !status.isSameFile(above.status))
        return nullptr;
    m_stacks.reopen(above, opened);
    return opened;
}

void TreeRemover::leave(Hand& hand, EmptiedFolder& folder) {
    EmptiedFolder& above = *folder.above;
    const auto opened = openedAbove(folder);
    folder.opened.reset();
    if (!opened) {
        m_stacks.abandon(above);
        return fail(above, folder.name, -ENOENT);
    }
    if (folder.isLost)
        return m_stacks.lose(above);
    const int result = unlink(above, opened->number(), folder.name.c_str(), AT_REMOVEDIR);
    if (result == -ENOTEMPTY && folder.passes < mostPasses)
        m_stacks.add(hand.number, folder.above, {{folder.name, folder.passes + 1}});
    else if (result == 0)
        ++hand.removed;
    else if (result != -ENOENT || isThere(above, opened->number(), folder.name))
        fail(above, folder.name, result);
}

/// Whether the top of the tree is still there although the system says that it isn't: it would be lost.
bool TreeRemover::isThere(const EmptiedFolder& above, int opened, const std::string& name) {
    FileStatus status;
    return above.depth == 0 && m_calls.status(opened, name.c_str(), status) == 0;
}

} // namespace brimlet
