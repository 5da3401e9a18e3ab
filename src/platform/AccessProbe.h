// Whether the user has let the application read everything.
#pragma once

namespace brimlet {

class AccessProbe {
public:
    virtual ~AccessProbe() = default;

    /// Tries what only an application with Full Disk Access can read. Any thread; touches the disk briefly.
    virtual bool hasFullDiskAccess() const = 0;
};

} // namespace brimlet
