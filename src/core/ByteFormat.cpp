#include "core/ByteFormat.h"

#include "core/Localized.h"

#include <algorithm>
#include <array>

namespace brimlet {

namespace {

struct Unit {
    std::string_view name;
    std::int64_t bytes;
    int decimals;
};

constexpr std::array<Unit, 4> units = {{
    {"KB", 1'000, 0},
    {"MB", 1'000'000, 1},
    {"GB", 1'000'000'000, 2},
    {"TB", 1'000'000'000'000, 2},
}};

constexpr std::int64_t powerOfTen(int exponent) {
    std::int64_t power = 1;
    while (exponent-- > 0)
        power *= 10;
    return power;
}

/// `bytes` in the last decimal of `unit`, halves rounded up, without overflow near the largest size.
std::int64_t roundedSteps(std::int64_t bytes, const Unit& unit) {
    const std::int64_t step = unit.bytes / powerOfTen(unit.decimals);
    return bytes / step + (bytes % step >= (step + 1) / 2 ? 1 : 0);
}

} // namespace

std::string formatBytes(std::int64_t bytes, const NumberSymbols& symbols) {
    if (bytes <= 0)
        return localized("Zero KB");
    const Unit* unit = units.data();
    std::int64_t steps = std::max<std::int64_t>(1, roundedSteps(bytes, *unit));
    while (unit != &units.back() && steps >= 1'000 * powerOfTen(unit->decimals)) {
        ++unit;
        steps = roundedSteps(bytes, *unit);
    }
    const std::int64_t scale = powerOfTen(unit->decimals);
    std::string text = formatCount(steps / scale, symbols);
    if (steps % scale != 0) {
        std::string fraction = std::to_string(steps % scale);
        fraction.insert(0, static_cast<std::size_t>(unit->decimals) - fraction.size(), '0');
        fraction.erase(fraction.find_last_not_of('0') + 1);
        text += symbols.decimalPoint + fraction;
    }
    return text + " " + localized(unit->name);
}

std::string formatCount(std::int64_t count, const NumberSymbols& symbols) {
    std::string text = std::to_string(count);
    const std::size_t firstDigit = count < 0 ? 1 : 0;
    for (std::size_t at = text.size(); at > firstDigit + 3;) {
        at -= 3;
        text.insert(at, symbols.groupSeparator);
    }
    return text;
}

} // namespace brimlet
