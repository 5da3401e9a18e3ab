#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace brimlet::test {

/// A program that runs as long as the object lives. Throws std::system_error where it can't be started.
class ChildProcess {
public:
    /// Starts it; at the return the program itself runs, not its preparation.
    /// arguments  the program's absolute path first
    explicit ChildProcess(const std::vector<std::string>& arguments);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

private:
    pid_t m_process = 0;
};

} // namespace brimlet::test
