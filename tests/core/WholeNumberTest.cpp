// Figures from anywhere become whole numbers and dates without undefined casts.
#include "core/WholeNumber.h"
#include "core/IsoTime.h"

#include <cmath>
#include <gtest/gtest.h>

namespace brimlet {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nothing = std::numeric_limits<double>::quiet_NaN();

TEST(WholeNumber, staysWithinItsRange) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    struct Case {
        double figure;
        std::int64_t large;
        int small;
        std::uint32_t natural;
    };
    for (const Case& each : {Case{0, 0, 0, 0},
                             {-0.0, 0, 0, 0},
                             {0.99, 0, 0, 0},
                             {-0.99, 0, 0, 0},
                             {-1.5, -1, -1, 0},
                             {2'147'483'647.5, 2'147'483'647, 2'147'483'647, 2'147'483'647},
                             {2'147'483'648.0, 2'147'483'648, 2'147'483'647, 2'147'483'648},
                             {-2'147'483'649.0, -2'147'483'649, -2'147'483'647 - 1, 0},
                             {4'294'967'296.0, 4'294'967'296, 2'147'483'647, 4'294'967'295},
                             {9.2e18, 9'200'000'000'000'000'000, 2'147'483'647, 4'294'967'295},
                             {0x1p63, largest, 2'147'483'647, 4'294'967'295},
                             {-0x1p63, least, -2'147'483'647 - 1, 0},
                             {std::nextafter(0x1p63, 0), largest - 1023, 2'147'483'647, 4'294'967'295},
                             {1e300, largest, 2'147'483'647, 4'294'967'295},
                             {infinity, largest, 2'147'483'647, 4'294'967'295},
                             {-infinity, least, -2'147'483'647 - 1, 0},
                             {nothing, 0, 0, 0}}) {
        EXPECT_EQ(wholeNumber<std::int64_t>(each.figure), each.large) << each.figure;
        EXPECT_EQ(wholeNumber<int>(each.figure), each.small) << each.figure;
        EXPECT_EQ(wholeNumber<std::uint32_t>(each.figure), each.natural) << each.figure;
    }
    EXPECT_EQ(wholeNumber<int>(2'147'483'648.0F), 2'147'483'647);
}

TEST(WholeNumber, blocksThatNoSizeCanHoldCountAsTheLargest) {
    EXPECT_EQ(bytesOfBlocks(8, 512), 4'096);
    EXPECT_EQ(bytesOfBlocks(std::uint64_t{1} << 63, 512), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(bytesOfBlocks(0, std::numeric_limits<std::uint64_t>::max()), 0);
}

TEST(IsoTime, tellsWhatTheCalendarHas) {
    struct Case {
        double seconds;
        const char* text;
    };
    for (const Case& each : {Case{0, "1970-01-01T00:00:00Z"},
                             {1'709'285'400.9, "2024-03-01T09:30:00Z"},
                             {-0.5, "1969-12-31T23:59:59Z"},
                             {1e13, "318857-05-20T17:46:40Z"},
                             {9.2e18, ""},
                             {0x1p63, ""},
                             {-0x1p63, ""},
                             {infinity, ""},
                             {-infinity, ""},
                             {nothing, ""}})
        EXPECT_EQ(isoTime(each.seconds), each.text) << each.seconds;
}

} // namespace
} // namespace brimlet
