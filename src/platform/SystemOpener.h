// Hands an address or a file to whatever the system opens it with.
#pragma once

#include <string>

namespace brimlet {

/// Main thread; nothing here blocks. What can't be opened is ignored: there is nothing the caller could do.
class SystemOpener {
public:
    virtual ~SystemOpener() = default;

    /// Opens an address: a page, or a pane of the system's settings.
    virtual void openUrl(const std::string& url) = 0;

    /// Opens a file with its application, or a folder in the file manager. Absolute, any bytes.
    virtual void openPath(const std::string& path) = 0;

    /// Shows an item selected in its folder in the file manager. Absolute, any bytes.
    virtual void revealPath(const std::string& path) = 0;
};

} // namespace brimlet
