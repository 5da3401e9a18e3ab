// The one byte formatter. Decimal units, KB to TB, as a Mac shows file sizes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace brimlet {

/// The characters that numbers are written with; `app` fills them from the user's locale.
struct NumberSymbols {
    std::string decimalPoint = ".";
    std::string groupSeparator = ",";
};

/// A size for people: "Zero KB", "1 KB", "12.3 MB", "1.5 GB".
///
/// KB without decimals, MB with at most one, GB and TB with at most two, trailing zeros dropped, halves
/// rounded up; what rounds to 1,000 moves to the next unit. A size of at least one byte is at least 1 KB;
/// negatives count as 0.
std::string formatBytes(std::int64_t bytes, const NumberSymbols& symbols = {});

/// A whole number with group separators: "1,234,567".
std::string formatCount(std::int64_t count, const NumberSymbols& symbols = {});

} // namespace brimlet
