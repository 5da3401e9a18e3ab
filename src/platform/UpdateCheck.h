// Asks the update feed whether there is a newer version.
#pragma once

#include <functional>
#include <string>
#include <variant>

namespace brimlet {

struct UpToDate {
    bool operator==(const UpToDate&) const = default;
};

struct NewerVersion {
    std::string version;
    std::string pageUrl; ///< where the user can get it
    bool operator==(const NewerVersion&) const = default;
};

struct UpdateCheckFailed {
    std::string reason; ///< a sentence for the user
    bool operator==(const UpdateCheckFailed&) const = default;
};

using UpdateOutcome = std::variant<UpToDate, NewerVersion, UpdateCheckFailed>;

class UpdateCheck {
public:
    virtual ~UpdateCheck() = default;

    /// Asks once; answers later on the main thread, exactly one time. Main thread.
    virtual void checkForUpdates(std::function<void(const UpdateOutcome&)> answer) = 0;
};

} // namespace brimlet
