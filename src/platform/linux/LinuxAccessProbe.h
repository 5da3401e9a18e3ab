#pragma once

#include "platform/AccessProbe.h"

#include <string>

namespace brimlet {

/// Tries the privacy database first, then the home folder's Safari data.
class LinuxAccessProbe final : public AccessProbe {
public:
    static constexpr const char* privacyDatabase = "/Library/Application Support/com.apple.TCC/TCC.db";

    explicit LinuxAccessProbe(const std::string& homeFolder, std::string database = privacyDatabase);

    bool hasFullDiskAccess() const override;

private:
    std::string m_database;
    std::string m_safariFolder;
};

} // namespace brimlet
