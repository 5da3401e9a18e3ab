#include "platform/HomeFolder.h"

#include <cstdlib>
#include <pwd.h>
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

} // namespace brimlet
