// Opens through xdg-open; reveals through the desktop's file manager on the session bus.
#pragma once

#include "platform/SystemOpener.h"

namespace brimlet {

class LinuxSystemOpener final : public SystemOpener {
public:
    void openUrl(const std::string& url) override;
    void openPath(const std::string& path) override;
    void revealPath(const std::string& path) override;
};

} // namespace brimlet
