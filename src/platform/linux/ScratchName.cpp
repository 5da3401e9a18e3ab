#include "platform/linux/ScratchName.h"

#include <cstdint>
#include <random>

namespace brimlet {

namespace {
constexpr std::string_view prefix = ".brimlet-";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t digitCount = 32;
} // namespace

std::string scratchName() {
    std::random_device random;
    std::string name(prefix);
    while (name.size() < prefix.size() + digitCount) {
        std::uint32_t word = random(); // a draw is dear, so each is used whole
        for (int i = 0; i < 8; ++i, word >>= 4)
            name += digits[word & 15];
    }
    return name;
}

bool isScratchName(std::string_view name) {
    return name.size() == prefix.size() + digitCount && name.starts_with(prefix) &&
           name.find_first_not_of(digits, prefix.size()) == std::string_view::npos;
}

} // namespace brimlet
