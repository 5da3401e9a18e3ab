#include "support/Program.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <linux/capability.h>
#include <memory>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace brimlet::test {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

std::string textOf(std::FILE* file) {
    std::string text;
    std::array<char, 65536> buffer{};
    std::rewind(file);
    while (const std::size_t read = std::fread(buffer.data(), 1, buffer.size(), file))
        text.append(buffer.data(), read);
    return text;
}

[[noreturn]] void become(const std::string& program, const std::vector<std::string>& arguments,
                         const std::map<std::string, std::string>& environment, int input, int output,
                         int error) {
    std::vector<char*> texts = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        texts.push_back(const_cast<char*>(argument.c_str()));
    texts.push_back(nullptr);
    for (const auto& [name, value] : environment)
        setenv(name.c_str(), value.c_str(), 1);
    // Root's program, too, is bound by permission bits; for others this does nothing.
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH})
        prctl(PR_CAPBSET_DROP, right, 0, 0, 0);
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(error, STDERR_FILENO);
    execv(program.c_str(), texts.data());
    _exit(127);
}

/// Whether the process has a handler for the interrupt signal, or has ended.
bool handlesInterrupt(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("SigCgt:"))
            return (std::stoull(line.substr(7), nullptr, 16) & (1ULL << (SIGINT - 1))) != 0;
    }
    return true;
}

template <typename WhileRunning>
Outcome run(const std::string& program, const std::vector<std::string>& arguments,
            const std::map<std::string, std::string>& environment, std::string_view input,
            const WhileRunning& whileRunning) {
    const File inputFile(std::tmpfile(), std::fclose);
    if (!input.empty())
        std::fwrite(input.data(), 1, input.size(), inputFile.get());
    std::rewind(inputFile.get());
    const File output(std::tmpfile(), std::fclose);
    const File error(std::tmpfile(), std::fclose);
    const pid_t process = fork();
    if (process < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (process == 0)
        become(program, arguments, environment, fileno(inputFile.get()), fileno(output.get()),
               fileno(error.get()));
    whileRunning(process);
    int status = 0;
    waitpid(process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), textOf(output.get()),
            textOf(error.get())};
}

} // namespace

Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::map<std::string, std::string>& environment, std::string_view input) {
    return run(program, arguments, environment, input, [](pid_t) {});
}

Outcome runInterrupted(const std::string& program, const std::vector<std::string>& arguments,
                       const std::map<std::string, std::string>& environment) {
    return run(program, arguments, environment, {}, [](pid_t process) {
        for (int i = 0; i < 10'000 && !handlesInterrupt(process); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        kill(process, SIGINT);
    });
}

} // namespace brimlet::test
