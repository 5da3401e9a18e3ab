// Tells whether a file was written, or anything else of it changed, while it was watched.
//
// For a file that is about to be renamed: the rename overwrites the time of change that would show it. Only
// what this system does is seen, not a write to a shared disk from elsewhere. Moving the file isn't a change.
#pragma once

#include "platform/linux/Descriptor.h"

namespace brimlet {

class ChangeWatch {
public:
    /// Begins to watch an entry that is a file. Where the system can't, it is taken for unchanged.
    ChangeWatch(FileSystemCalls& calls, int folder, const char* name);

    bool sawChange();

private:
    Descriptor m_events;
};

} // namespace brimlet
