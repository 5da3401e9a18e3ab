#include "support/OrdinaryUser.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace brimlet::test {

namespace {

constexpr unsigned nobody = 65534;

bool becomeOrdinary() {
    return getuid() != 0 || (setgroups(0, nullptr) == 0 && setresgid(nobody, nobody, nobody) == 0 &&
                             setresuid(nobody, nobody, nobody) == 0);
}

} // namespace

bool asOrdinaryUser(const std::function<bool()>& question) {
    const pid_t child = fork();
    if (child == 0)
        _exit(becomeOrdinary() && question() ? 0 : 1);
    int status = 1;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace brimlet::test
