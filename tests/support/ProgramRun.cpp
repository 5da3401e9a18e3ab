#include "support/ProgramRun.h"

#include "support/TemporaryTree.h"

#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace brimlet::test {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// The environment with another home folder.
std::vector<std::string> environmentWith(std::string_view home) {
    std::vector<std::string> variables = {"HOME=" + std::string(home)};
    for (char** variable = environ; *variable != nullptr; ++variable) {
        if (!std::string_view(*variable).starts_with("HOME="))
            variables.emplace_back(*variable);
    }
    return variables;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

ProgramRun runProgram(const std::vector<std::string>& arguments, std::string_view home,
                      std::string_view input) {
    // Files rather than pipes: neither side ever waits for the other.
    const TemporaryTree streams;
    const std::string inputFile = streams.fileWithText("input", input);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, inputFile.c_str(), O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, streams.path("output").c_str(),
                                     O_CREAT | O_WRONLY, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, streams.path("errors").c_str(),
                                     O_CREAT | O_WRONLY, 0600);
    std::vector<std::string> ownArguments = arguments;
    std::vector<std::string> environment = environmentWith(home);
    pid_t process = 0;
    const int error = posix_spawn(&process, arguments.front().c_str(), &actions, nullptr,
                                  pointersTo(ownArguments).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), arguments.front());
    int status = 0;
    waitpid(process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentOf(streams.path("output")),
            contentOf(streams.path("errors"))};
}

} // namespace brimlet::test
