// The one way from a floating-point figure, or from a file system's own units, to a whole number.
//
// A plain cast is undefined beyond the integer's range, and dates, sizes and counts may come from anywhere: a
// file system keeps any 64-bit date, a history file holds any number. Pure functions; callable from any
// thread.
#pragma once

#include <cstdint>
#include <limits>
#include <type_traits>

namespace brimlet {

/// The figure without its fraction; beyond the range of `Integer` the nearest end of it; 0 for no number
/// (NaN).
template <typename Integer, typename Figure>
constexpr Integer wholeNumber(Figure figure) {
    static_assert(std::is_integral_v<Integer> && std::is_floating_point_v<Figure>);
    using Limits = std::numeric_limits<Integer>;
    // Powers of two, and so exact in any floating-point type.
    constexpr auto lowest = static_cast<Figure>(Limits::min());
    constexpr auto end = static_cast<Figure>(Integer{Limits::max() / 2 + 1}) * 2;
    if (!(figure >= lowest))
        return figure < lowest ? Limits::min() : 0;
    return figure < end ? static_cast<Integer>(figure) : Limits::max();
}

/// What so many blocks hold; the largest size where that is more than a size can be.
constexpr std::int64_t bytesOfBlocks(std::uint64_t blocks, std::uint64_t blockBytes) {
    std::int64_t bytes = 0;
    return __builtin_mul_overflow(blocks, blockBytes, &bytes) ? std::numeric_limits<std::int64_t>::max()
                                                              : bytes;
}

} // namespace brimlet
