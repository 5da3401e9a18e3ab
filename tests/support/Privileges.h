// Conditions that a test needs and that depend on who runs it.
#pragma once

#include <functional>
#include <string>

namespace brimlet::test {

/// While it lives, permission bits bind the calling thread, and threads that it starts, also where the tests
/// run as root.
class OrdinaryRights {
public:
    OrdinaryRights();
    ~OrdinaryRights();
    OrdinaryRights(const OrdinaryRights&) = delete;
    OrdinaryRights& operator=(const OrdinaryRights&) = delete;

private:
    bool m_dropped = false;
    unsigned m_effective[2] = {};
};

/// Runs `body` on a thread with mounts and a root folder of its own; what it mounts is gone afterwards.
/// Returns whether that was allowed; if not, `body` has not run.
bool withOwnMounts(const std::function<void()>& body);

/// Runs `body` on a thread that can start no other. Returns whether that could be brought about; if not,
/// `body` has not run. No other thread of the process may be starting any meanwhile.
bool withoutThreads(const std::function<void()>& body);

} // namespace brimlet::test
