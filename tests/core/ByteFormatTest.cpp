#include "core/ByteFormat.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>

namespace brimlet {
namespace {

TEST(ByteFormat, showsDecimalUnitsWithAMacsDigits) {
    struct Case {
        std::int64_t bytes;
        const char* text;
    };
    constexpr Case cases[] = {
        {std::numeric_limits<std::int64_t>::min(), "Zero KB"},
        {0, "Zero KB"},
        {1, "1 KB"},
        {500, "1 KB"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {999'499, "999 KB"},
        {999'500, "1 MB"},
        {12'340'000, "12.3 MB"},
        {12'350'000, "12.4 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1 GB"},
        {1'500'000'000, "1.5 GB"},
        {1'050'000'000, "1.05 GB"},
        {1'004'999'999, "1 GB"},
        {999'995'000'000, "1 TB"},
        {1'234'560'000'000'000, "1,234.56 TB"},
        {std::numeric_limits<std::int64_t>::max(), "9,223,372.04 TB"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(formatBytes(one.bytes), one.text) << one.bytes;
}

TEST(ByteFormat, writesNumbersWithTheGivenSymbols) {
    const NumberSymbols german{",", "."};
    EXPECT_EQ(formatBytes(1'234'560'000'000'000, german), "1.234,56 TB");
    EXPECT_EQ(formatCount(-1'234'567, german), "-1.234.567");
    EXPECT_EQ(formatCount(-123, german), "-123");
    EXPECT_EQ(formatCount(1'000, german), "1.000");
    EXPECT_EQ(formatCount(std::numeric_limits<std::int64_t>::min()), "-9,223,372,036,854,775,808");
}

} // namespace
} // namespace brimlet
