#pragma once

#include "platform/DirectoryLister.h"

namespace brimlet {

class LinuxDirectoryLister final : public DirectoryLister {
public:
    std::optional<std::vector<ListedChild>> children(const std::string& folder) const override;
};

} // namespace brimlet
