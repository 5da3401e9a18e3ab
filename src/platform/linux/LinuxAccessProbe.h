#pragma once

#include "platform/AccessProbe.h"

#include <string>

namespace brimlet {

/// Tries a database first, then a folder: whoever can open one of them may read all of the user's data.
class LinuxAccessProbe final : public AccessProbe {
public:
    LinuxAccessProbe(std::string database, std::string folder);

    bool hasFullDiskAccess() const override;

private:
    std::string m_database;
    std::string m_folder;
};

} // namespace brimlet
