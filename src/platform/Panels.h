// The system's panels that let the user choose a place on disk.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brimlet {

/// Main thread. A panel opens at once and answers later, exactly one time; one panel at a time is open, and
/// asking for another answers the first with nothing.
class Panels {
public:
    /// The absolute path chosen, or nothing where the user cancelled.
    using Answer = std::function<void(std::optional<std::string> path)>;

    virtual ~Panels() = default;

    /// Asks for one existing folder. `prompt` is the word on the panel's button.
    virtual void chooseFolder(const std::string& prompt, Answer answer) = 0;

    /// Asks where to save a file.
    virtual void chooseFileToSave(const std::string& suggestedName, Answer answer) = 0;
};

} // namespace brimlet
