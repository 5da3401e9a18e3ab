#include "safety/Risk.h"

#include "core/Localized.h"

namespace brimlet {

std::string_view caseName(Risk risk) {
    switch (risk) {
    case Risk::safe:
        return "safe";
    case Risk::review:
        return "review";
    case Risk::protected_:
        break;
    }
    return "protected";
}

std::string label(Risk risk) {
    switch (risk) {
    case Risk::safe:
        return localized("Safe");
    case Risk::review:
        return localized("Review");
    case Risk::protected_:
        break;
    }
    return localized("Protected");
}

} // namespace brimlet
