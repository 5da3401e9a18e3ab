#pragma once

#include "platform/EntryLookup.h"

namespace brimlet {

class LinuxEntryLookup : public EntryLookup {
public:
    std::optional<FoundEntry> find(const std::string& path) const override;
};

} // namespace brimlet
