// Walks a folder and all below it with several threads; scans and measurements are visitors of it.
//
// The thread that calls always walks itself, so a walk never waits for a free thread, and a small folder is
// walked without any other. Further threads join while enough folders wait: first one for each core, then
// more with time, since a walk that takes long waits for the disk. All have ended when `run` returns.
//
// Each thread goes deep first on folders of its own and gives half of them away when another has none, so
// threads seldom meet and few folders wait at once. The order in which folders are visited is open; what a
// visitor sees of one folder is the order of the file system.
#pragma once

#include "core/walk/DirectoryReader.h"
#include "core/walk/Folder.h"
#include "core/walk/FolderOpener.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace brimlet {

struct WalkCount {
    std::int64_t files = 0;
    std::int64_t bytes = 0;
};

/// What one walking thread does with what it meets. Each thread has a visitor of its own.
class FolderVisitor {
public:
    virtual ~FolderVisitor() = default;

    /// The entries that follow are those of this folder, until `end`.
    virtual void begin(const Folder& folder) = 0;
    virtual void file(const DirectoryEntry& entry) = 0;

    /// Fills `tag` for the folder to come. Returns whether the walk may go into it.
    virtual bool directory(const DirectoryEntry& entry, FolderTag& tag) = 0;

    /// An entry that is listed and can't be examined.
    virtual void unexaminable() = 0;

    /// The folder can't be listed; no entries have come.
    virtual void unreadable() = 0;
    virtual void end() = 0;

    /// What this visitor has counted so far.
    virtual WalkCount counted() const = 0;
};

class ParallelWalk {
public:
    /// Makes the visitor of one more thread. Never called twice at once.
    using NewVisitor = std::function<FolderVisitor&()>;
    using Report = std::function<void(const WalkCount& count, std::string_view path)>;

    /// cancelled  looked at before each folder; may be null
    /// report     called by the calling thread of `run`, at most every 80 ms; may be empty
    ParallelWalk(NewVisitor newVisitor, const std::atomic<bool>* cancelled, Report report);

    /// Walks the directory that `status` was found at. Directories of other devices are met and not entered,
    /// directories that hold themselves are not met.
    /// visitor  that of the calling thread
    /// returns  whether every folder was visited; false where it was cancelled before that
    bool run(const std::string& path, const EntryStatus& status, const FolderTag& tag,
             FolderVisitor& visitor);

private:
    using Clock = std::chrono::steady_clock;

    enum class Role { caller, helper };

    struct Worker {
        Worker(Role workerRole, FolderVisitor& workerVisitor)
            : role(workerRole)
            , visitor(workerVisitor) {}

        const Role role;
        FolderVisitor& visitor;
        DirectoryReader reader;
        std::vector<Folder*> waiting; ///< met by this thread, not yet read; the next one last
        alignas(64) std::atomic<std::int64_t> files = 0;
        std::atomic<std::int64_t> bytes = 0;
        std::thread thread;
    };

    void work(Worker& worker);
    Folder* next(Worker& worker);
    bool takeShared(Worker& worker);
    bool mustLeave(const Worker& worker) const;
    void visit(Worker& worker, Folder& folder);
    OpenedDirectory open(const Worker& worker, const Folder& folder);
    void list(Worker& worker, Folder& folder, const DirectoryDescriptor& descriptor);
    void meet(Worker& worker, Folder& folder, const DirectoryEntry& entry);
    void share(Worker& worker);
    bool mayStartHelper(const Worker& worker) const;
    void startHelper();
    void goOnAlone();
    void stop();
    void dropWaiting();
    void publish(Worker& worker, const Folder& folder);
    void reportIfDue();

    const NewVisitor m_newVisitor;
    const std::atomic<bool>* const m_cancelled;
    const Report m_report;
    const Clock::time_point m_started = Clock::now();
    Clock::time_point m_reported = m_started; ///< calling thread only, as the two below
    std::string m_reportedPath;
    int m_patience = 200;
    FolderOpener m_opener;

    std::atomic<std::int64_t> m_unread = 1; ///< folders met and not yet read
    std::atomic<bool> m_stopped = false;
    std::atomic<bool> m_alone = false; ///< out of descriptors: only the calling thread goes on
    std::atomic<int> m_idle = 0;
    std::atomic<int> m_helpers = 0;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Worker> m_workers;  ///< guarded by m_mutex, as the two below
    std::vector<Folder*> m_shared; ///< folders for whoever has none
    int m_walkingHelpers = 0;
};

} // namespace brimlet
