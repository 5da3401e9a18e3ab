// System calls that change nothing outside one folder, and that fail or end the process where a test says so.
//
// Each call that would change something is resolved to the folder it works in; if that is not the allowed
// folder or below it, the program is aborted before the call is made.
#pragma once

#include "platform/linux/FileSystemCalls.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <sys/types.h>
#include <utility>

namespace brimlet::test {

enum class Repeat { once, fromThenOn };

class GuardedCalls : public FileSystemCalls {
public:
    /// allowed  absolute, without links
    explicit GuardedCalls(std::string allowed);

    /// The n-th call from now, counted from 1, fails.
    void failAt(int n, int errnoValue, Repeat repeat = Repeat::once);

    /// Calls of this name fail.
    void failCalls(std::string call, int errnoValue);

    /// The process is killed in place of the n-th call from now.
    void dieAt(int n);

    /// No more failures; the count starts again.
    void behave();

    /// Renames between this folder's tree and what is outside it are refused as if it were another disk.
    void separate(std::string otherDisk) { m_otherDisk = std::move(otherDisk); }

    /// From now on there is no exclusive rename, and no hard link either, as on some file systems.
    void lackExclusiveRename() { m_lacksExclusiveRename = true; }
    void lackHardLinks() { m_lacksHardLinks = true; }

    /// From now on the kernel doesn't say where disks are mounted, as before 5.8.
    void actAsOlderKernel() { m_kernelTellsMountPoints = false; }

    /// Called before each call.
    std::function<void(const SystemCall&)> onCall;

    /// Calls since the count started.
    int count() const { return m_count; }

protected:
    int before(const SystemCall& call) override;

private:
    bool climbsToAllowed(int folder);
    void guard(const SystemCall& call, int folder);
    bool crossesDisks(const SystemCall& call) const;

    std::mutex m_mutex; ///< removal threads call side by side
    std::string m_allowed;
    std::set<std::pair<dev_t, ino_t>> m_below; ///< deep folders that were found in the allowed one
    std::string m_otherDisk;
    bool m_lacksExclusiveRename = false;
    bool m_lacksHardLinks = false;
    std::string m_failingCall;
    std::atomic<int> m_count = 0;
    int m_failAt = 0;
    int m_error = 0;
    Repeat m_repeat = Repeat::once;
    int m_dieAt = 0;
};

} // namespace brimlet::test
