#include "core/walk/ParallelWalk.h"

#include <algorithm>
#include <system_error>

namespace brimlet {

namespace {

using namespace std::chrono_literals;

constexpr auto reportInterval = 80ms;
constexpr std::int64_t entriesBetweenReports = 1024;

/// A thread costs about as much as reading two small folders: it is worth that when this many wait, or when
/// the disk is so slow that a walk has already taken a while.
constexpr std::size_t foldersWorthAThread = 16;
constexpr auto walkWorthAThread = 10ms;

/// Threads beyond the cores come one by one, so that a short walk from memory does without them.
constexpr auto timeBetweenThreads = 500us;

/// A disk serves requests fastest with about 32 of them in its queue, however few the cores; 16 threads take
/// half as long again, 8 twice as long. More threads than that are only worth it where there are more cores.
int threadsOfOneWalk() {
    static const int threads = std::clamp(2 * static_cast<int>(std::thread::hardware_concurrency()), 32, 64);
    return threads;
}

int coreCount() {
    static const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return cores;
}

/// Threads that all walks of the process have started, so that many walks at once stay within a bound.
std::atomic<int> helpersOfProcess = 0;

bool takeHelperPlace() {
    if (helpersOfProcess.fetch_add(1) < 2 * threadsOfOneWalk())
        return true;
    helpersOfProcess.fetch_sub(1);
    return false;
}

void giveHelperPlaceBack() {
    helpersOfProcess.fetch_sub(1);
}

} // namespace

ParallelWalk::ParallelWalk(NewVisitor newVisitor, const std::atomic<bool>* cancelled, Report report)
    : m_newVisitor(std::move(newVisitor))
    , m_cancelled(cancelled)
    , m_report(std::move(report)) {}

bool ParallelWalk::run(const std::string& path, const EntryStatus& status, const FolderTag& tag,
                       FolderVisitor& visitor) {
    m_reportedPath = path;
    Worker& caller = m_workers.emplace_back(Role::caller, visitor);
    caller.waiting.push_back(new Folder(path, nullptr, status, tag));
    work(caller);
    for (Worker& worker : m_workers)
        if (worker.thread.joinable())
            worker.thread.join();
    dropWaiting();
    return !m_stopped;
}

void ParallelWalk::work(Worker& worker) {
    while (Folder* folder = next(worker))
        visit(worker, *folder);
    if (worker.role == Role::helper) {
        const std::lock_guard lock(m_mutex);
        m_shared.insert(m_shared.end(), worker.waiting.begin(), worker.waiting.end());
        worker.waiting.clear();
        --m_walkingHelpers;
        giveHelperPlaceBack();
        m_changed.notify_all();
    }
}

bool ParallelWalk::mustLeave(const Worker& worker) const {
    return m_stopped || (worker.role == Role::helper && m_alone);
}

Folder* ParallelWalk::next(Worker& worker) {
    if (mustLeave(worker))
        return nullptr;
    if (worker.waiting.empty() && !takeShared(worker))
        return nullptr;
    Folder* folder = worker.waiting.back();
    worker.waiting.pop_back();
    return folder;
}

bool ParallelWalk::takeShared(Worker& worker) {
    std::unique_lock lock(m_mutex);
    while (m_shared.empty()) {
        if (mustLeave(worker) || m_unread == 0)
            return false;
        ++m_idle;
        if (worker.role == Role::helper || !m_report) {
            m_changed.wait(lock);
        } else {
            m_changed.wait_for(lock, reportInterval);
            lock.unlock();
            reportIfDue();
            lock.lock();
        }
        --m_idle;
    }
    const std::size_t taken = 1 + m_shared.size() / (2 * m_workers.size());
    worker.waiting.assign(m_shared.end() - static_cast<std::ptrdiff_t>(taken), m_shared.end());
    m_shared.resize(m_shared.size() - taken);
    return true;
}

void ParallelWalk::visit(Worker& worker, Folder& folder) {
    if (m_cancelled != nullptr && *m_cancelled)
        stop();
    OpenedDirectory opened;
    if (!m_stopped)
        opened = open(worker, folder);
    if (m_stopped || opened.outcome == OpenOutcome::outOfDescriptors) {
        worker.waiting.push_back(&folder);
        return;
    }
    m_opener.finishOpening(folder);
    const std::size_t waitingBefore = worker.waiting.size();
    worker.visitor.begin(folder);
    if (opened.outcome == OpenOutcome::opened)
        list(worker, folder, opened.descriptor);
    else
        worker.visitor.unreadable();
    worker.visitor.end();
    const auto met = static_cast<std::int64_t>(worker.waiting.size() - waitingBefore);
    if (met > 0)
        m_opener.keep(folder, std::move(opened.descriptor));
    publish(worker, folder);
    Folder::release(&folder);
    if (m_unread.fetch_add(met - 1) + met - 1 == 0) {
        const std::lock_guard lock(m_mutex);
        m_changed.notify_all();
    }
    share(worker);
}

OpenedDirectory ParallelWalk::open(const Worker& worker, const Folder& folder) {
    OpenedDirectory opened = m_opener.open(folder);
    if (opened.outcome != OpenOutcome::outOfDescriptors)
        return opened;
    if (worker.role == Role::helper) {
        m_alone = true;
        return opened;
    }
    goOnAlone();
    opened = m_opener.open(folder);
    // What others in the process have open may be closed soon.
    for (; opened.outcome == OpenOutcome::outOfDescriptors && m_patience > 0; --m_patience) {
        std::this_thread::sleep_for(5ms);
        opened = m_opener.open(folder);
    }
    if (opened.outcome == OpenOutcome::outOfDescriptors)
        opened.outcome = OpenOutcome::failed;
    return opened;
}

void ParallelWalk::goOnAlone() {
    std::unique_lock lock(m_mutex);
    m_alone = true;
    m_changed.notify_all();
    m_changed.wait(lock, [&] { return m_walkingHelpers == 0; });
    m_opener.closeAll();
}

void ParallelWalk::list(Worker& worker, Folder& folder, const DirectoryDescriptor& descriptor) {
    std::int64_t entries = 0;
    worker.reader.begin(descriptor);
    while (const DirectoryEntry* entry = worker.reader.next()) {
        if (!entry->status)
            worker.visitor.unexaminable();
        else if (entry->status->isDirectory())
            meet(worker, folder, *entry);
        else
            worker.visitor.file(*entry);
        if (++entries % entriesBetweenReports == 0)
            publish(worker, folder);
    }
}

void ParallelWalk::meet(Worker& worker, Folder& folder, const DirectoryEntry& entry) {
    FolderTag tag;
    if (folder.isInside(*entry.status) || !worker.visitor.directory(entry, tag))
        return;
    if (entry.status->device == folder.device)
        worker.waiting.push_back(folder.newChild(entry.name, *entry.status, tag));
}

void ParallelWalk::share(Worker& worker) {
    if (worker.waiting.size() < 2)
        return;
    const bool wanted = m_idle.load(std::memory_order_relaxed) > 0;
    const bool worthAThread = !wanted && mayStartHelper(worker);
    if (!wanted && !worthAThread)
        return;
    const std::lock_guard lock(m_mutex);
    if (m_stopped)
        return;
    if (worthAThread)
        startHelper();
    // The oldest stand highest in the tree and so for the most work.
    const auto half = worker.waiting.begin() + static_cast<std::ptrdiff_t>(worker.waiting.size() / 2);
    m_shared.insert(m_shared.end(), worker.waiting.begin(), half);
    worker.waiting.erase(worker.waiting.begin(), half);
    m_changed.notify_all();
}

bool ParallelWalk::mayStartHelper(const Worker& worker) const {
    const int helpers = m_helpers.load(std::memory_order_relaxed);
    if (helpers >= threadsOfOneWalk() - 1 || m_alone)
        return false;
    const auto elapsed = Clock::now() - m_started;
    if (worker.waiting.size() < foldersWorthAThread && elapsed < walkWorthAThread)
        return false;
    return helpers < coreCount() - 1 || (helpers - coreCount() + 1) * timeBetweenThreads < elapsed;
}

void ParallelWalk::startHelper() {
    if (!takeHelperPlace())
        return;
    Worker& helper = m_workers.emplace_back(Role::helper, m_newVisitor());
    try {
        helper.thread = std::thread([this, &helper] { work(helper); });
        ++m_walkingHelpers;
        ++m_helpers;
    } catch (const std::system_error&) {
        // Without threads to be had, the walk goes on with those there are.
        m_helpers = threadsOfOneWalk();
        giveHelperPlaceBack();
    }
}

void ParallelWalk::stop() {
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_changed.notify_all();
}

void ParallelWalk::dropWaiting() {
    for (Worker& worker : m_workers)
        m_shared.insert(m_shared.end(), worker.waiting.begin(), worker.waiting.end());
    for (Folder* folder : m_shared) {
        m_opener.finishOpening(*folder);
        Folder::release(folder);
    }
    m_shared.clear();
}

void ParallelWalk::publish(Worker& worker, const Folder& folder) {
    if (!m_report)
        return;
    const WalkCount count = worker.visitor.counted();
    worker.files.store(count.files, std::memory_order_relaxed);
    worker.bytes.store(count.bytes, std::memory_order_relaxed);
    if (worker.role == Role::caller && Clock::now() - m_reported > reportInterval) {
        m_reportedPath = folder.path();
        reportIfDue();
    }
}

void ParallelWalk::reportIfDue() {
    const auto now = Clock::now();
    if (now - m_reported <= reportInterval)
        return;
    m_reported = now;
    WalkCount sum;
    {
        const std::lock_guard lock(m_mutex);
        for (const Worker& worker : m_workers) {
            sum.files += worker.files.load(std::memory_order_relaxed);
            sum.bytes += worker.bytes.load(std::memory_order_relaxed);
        }
    }
    m_report(sum, m_reportedPath);
}

} // namespace brimlet
