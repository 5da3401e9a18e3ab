#pragma once

#include "safety/Risk.h"

#include <cstdint>

namespace brimlet {

/// sRGB, as the badges of the window show it.
constexpr std::uint32_t colorOf(Risk risk) {
    switch (risk) {
    case Risk::safe:
        return 0x30C26B;
    case Risk::review:
        return 0xF2A33A;
    case Risk::protected_:
        break;
    }
    return 0xE5484D;
}

} // namespace brimlet
