#include "platform/linux/removal/DiskSync.h"

#include "core/walk/ParallelFor.h"

#include <algorithm>
#include <cerrno>
#include <sys/resource.h>

namespace brimlet {

namespace {

/// How many descriptors to hold: a small part of what the process may have. More than 128 gain little.
std::size_t mostPending() {
    rlimit descriptors{};
    const bool isKnown = getrlimit(RLIMIT_NOFILE, &descriptors) == 0;
    return isKnown ? std::clamp<std::size_t>(descriptors.rlim_cur / 8, 8, 128) : 8;
}

/// Syncs all at once. The first error, or 0.
template <class Sync>
int syncEach(const std::vector<Descriptor>& entries, Sync sync) {
    std::vector<int> results(entries.size());
    parallelFor(entries.size(), diskThreads(),
                [&](std::size_t index) { results[index] = sync(entries[index].number()); });
    const auto failed = std::find_if(results.begin(), results.end(), [](int result) { return result < 0; });
    return failed == results.end() ? 0 : *failed;
}

} // namespace

DiskSync::DiskSync(FileSystemCalls& calls)
    : m_calls(calls)
    , m_most(mostPending()) {}

int syncFolder(FileSystemCalls& calls, int folder) {
    const int result = calls.sync(folder);
    return result == -EINVAL ? 0 : result;
}

int DiskSync::addFile(Descriptor file) {
    m_calls.startWriting(file.number()); // what fails now fails again at the sync
    m_files.push_back(std::move(file));
    return finishIfMany();
}

int DiskSync::addFolder(Descriptor folder) {
    m_folders.push_back(std::move(folder));
    return finishIfMany();
}

int DiskSync::finishIfMany() {
    return m_files.size() + m_folders.size() < m_most ? 0 : finish();
}

// Some file systems send what was written only when it is closed.
int DiskSync::finish() {
    int result = syncEach(m_files, [this](int file) { return m_calls.sync(file); });
    for (Descriptor& file : m_files) {
        const int closed = file.closeWritten();
        result = result < 0 ? result : closed;
    }
    m_files.clear();
    if (result == 0)
        result = syncEach(m_folders, [this](int folder) { return syncFolder(m_calls, folder); });
    m_folders.clear();
    return result;
}

} // namespace brimlet
