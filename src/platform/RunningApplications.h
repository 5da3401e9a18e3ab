// Which applications are open right now.
#pragma once

#include <string>
#include <vector>

namespace brimlet {

class RunningApplications {
public:
    virtual ~RunningApplications() = default;

    /// The bundle identifiers of all applications now running. Applications without one are left out. Any
    /// thread.
    virtual std::vector<std::string> identifiers() const = 0;
};

} // namespace brimlet
