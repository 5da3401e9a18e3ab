#pragma once

#include "platform/EntryLookup.h"
#include "platform/linux/FileSystemCalls.h"

namespace brimlet {

class LinuxEntryLookup : public EntryLookup {
public:
    LinuxEntryLookup()
        : m_calls(m_own) {}

    /// calls   must outlive the look-up
    explicit LinuxEntryLookup(FileSystemCalls& calls)
        : m_calls(calls) {}

    void findEach(const std::vector<std::string>& paths, const Found& found) const override;

private:
    FileSystemCalls m_own;
    FileSystemCalls& m_calls;
};

} // namespace brimlet
