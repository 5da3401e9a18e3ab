#include "support/ChildProcess.h"

#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace brimlet::test {

ChildProcess::ChildProcess(const std::vector<std::string>& arguments) {
    std::vector<char*> raw;
    for (const std::string& argument : arguments)
        raw.push_back(const_cast<char*>(argument.c_str()));
    raw.push_back(nullptr);
    // posix_spawn returns once the new program has been entered.
    const int error = posix_spawn(&m_process, raw.front(), nullptr, nullptr, raw.data(), environ);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), arguments.front());
}

ChildProcess::~ChildProcess() {
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}

} // namespace brimlet::test
