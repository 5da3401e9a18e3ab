#include "support/Privileges.h"

#include <linux/capability.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/syscall.h>
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

} // namespace brimlet::test
