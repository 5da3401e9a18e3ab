#include "platform/HomeFolder.h"

#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brimlet {

std::string homeFolder() {
    const char* variable = std::getenv("HOME");
    std::string home = variable != nullptr ? variable : "";
    if (home.empty()) {
        if (const passwd* user = getpwuid(getuid()))
            home = user->pw_dir;
    }
    while (home.size() > 1 && home.ends_with('/'))
        home.pop_back();
    return home.empty() ? "/" : home;
}

std::string pathWithoutLinks(const std::string& folder) {
    std::error_code error;
    const std::filesystem::path resolved = std::filesystem::canonical(folder, error);
    return error ? folder : resolved.native();
}

bool belongsToAnother(const std::string& folder) {
    struct stat status {};
    return stat(folder.c_str(), &status) == 0 && status.st_uid != geteuid();
}

std::string programPath() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.native();
}

} // namespace brimlet
