#include "support/Privileges.h"

#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace brimlet::test {

namespace {

__user_cap_header_struct ofThisThread() {
    return {_LINUX_CAPABILITY_VERSION_3, 0};
}

} // namespace

OrdinaryRights::OrdinaryRights() {
    __user_cap_header_struct header = ofThisThread();
    __user_cap_data_struct sets[2] = {};
    if (syscall(SYS_capget, &header, sets) != 0)
        return;
    m_effective[0] = sets[0].effective;
    m_effective[1] = sets[1].effective;
    sets[0].effective &= ~((1U << CAP_DAC_OVERRIDE) | (1U << CAP_DAC_READ_SEARCH));
    m_dropped = syscall(SYS_capset, &header, sets) == 0;
}

OrdinaryRights::~OrdinaryRights() {
    if (!m_dropped)
        return;
    __user_cap_header_struct header = ofThisThread();
    __user_cap_data_struct sets[2] = {};
    if (syscall(SYS_capget, &header, sets) != 0)
        return;
    sets[0].effective = m_effective[0];
    sets[1].effective = m_effective[1];
    syscall(SYS_capset, &header, sets);
}

bool withOwnMounts(const std::function<void()>& body) {
    bool allowed = false;
    std::thread([&] {
        allowed = unshare(CLONE_NEWNS | CLONE_FS) == 0 &&
                  mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        if (allowed)
            body();
    }).join();
    return allowed;
}

// The limit binds neither the superuser nor who may exceed it.
bool withoutThreads(const std::function<void()>& body) {
    rlimit before{};
    if (getrlimit(RLIMIT_NPROC, &before) != 0)
        return false;
    bool isBound = false;
    std::thread([&] {
        constexpr unsigned kept = static_cast<unsigned>(-1);
        if (getuid() == 0 && syscall(SYS_setresuid, 65534U, kept, kept) != 0)
            return;
        __user_cap_header_struct header = ofThisThread();
        __user_cap_data_struct sets[2] = {};
        if (syscall(SYS_capget, &header, sets) != 0)
            return;
        sets[0].effective &= ~((1U << CAP_SYS_ADMIN) | (1U << CAP_SYS_RESOURCE));
        const rlimit none{0, before.rlim_max};
        if (syscall(SYS_capset, &header, sets) != 0 || setrlimit(RLIMIT_NPROC, &none) != 0)
            return;
        try {
            std::thread([] {}).join();
        } catch (const std::system_error&) {
            isBound = true;
            body();
        }
    }).join();
    setrlimit(RLIMIT_NPROC, &before);
    return isBound;
}

} // namespace brimlet::test
