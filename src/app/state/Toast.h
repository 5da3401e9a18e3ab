// The notice shown to the user after something was done.
#pragma once

#include "safety/DeletionRecords.h"
#include "safety/Uuid.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brimlet {

struct Toast {
    Uuid id = Uuid::random();
    std::string message;
    std::optional<std::string> detail;
    std::shared_ptr<const std::vector<HistoryEntry>> undoable; ///< null where no Undo is offered
    bool operator==(const Toast&) const = default;
};

} // namespace brimlet
