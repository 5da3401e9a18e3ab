#include "platform/ScratchName.h"

#include <algorithm>
#include <array>
#include <random>
#include <unistd.h>

namespace brimlet {

namespace {
constexpr std::string_view prefix = ".brimlet-";
constexpr std::string_view digits = "0123456789abcdef";
constexpr std::size_t digitCount = 32;
} // namespace

std::string scratchName() {
    std::array<unsigned char, digitCount / 2> bytes{};
    if (getentropy(bytes.data(), bytes.size()) != 0)
        std::generate(bytes.begin(), bytes.end(), std::random_device());
    std::string name(prefix);
    for (const unsigned char byte : bytes) {
        name += digits[byte >> 4];
        name += digits[byte & 15];
    }
    return name;
}

bool isScratchName(std::string_view name) {
    return name.size() == prefix.size() + digitCount && name.starts_with(prefix) &&
           name.find_first_not_of(digits, prefix.size()) == std::string_view::npos;
}

} // namespace brimlet
