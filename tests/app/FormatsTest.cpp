// Figures and dates as the user reads them.
#include "app/Formats.h"

#include <gtest/gtest.h>
#include <limits>
#include <ostream>

// Lets failures print texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text.toStdString();
}

namespace brimlet {
namespace {

const QLocale english(QLocale::English, QLocale::UnitedStates);
const QLocale german(QLocale::German, QLocale::Germany);

TEST(Formats, bytesFollowTheLocale) {
    EXPECT_EQ(bytesText(500, english), "1 KB");
    EXPECT_EQ(bytesText(1'500'000'000, english), "1.5 GB");
    EXPECT_EQ(bytesText(1'500'000'000, german), "1,5 GB");
    EXPECT_EQ(bytesText(-3, english), "Zero KB");
    EXPECT_EQ(countText(1'234'567, english), "1,234,567");
    EXPECT_EQ(countText(1'234'567, german), "1.234.567");
}

TEST(Formats, percentages) {
    constexpr auto largest = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    struct Case {
        std::int64_t part;
        std::int64_t whole;
        const char* text;
    };
    for (const Case& each : {Case{0, 100, "0.0%"},
                             {5, 0, "0%"},
                             {5, -1, "0%"},
                             {-5, 100, "0.0%"},
                             {largest, largest, "100%"},
                             {least, largest, "0.0%"},
                             {largest, 1, "922,337,203,685,477,580,800%"},
                             {1, 10, "10%"},
                             {99, 1'000, "9.9%"},
                             {1, 1'000, "0.1%"},
                             {1, 1'001, "<0.1%"},
                             {1, largest, "<0.1%"},
                             {1, 3, "33%"},
                             {2, 3, "67%"},
                             {100, 100, "100%"},
                             {150, 100, "150%"}})
        EXPECT_EQ(percentText(each.part, each.whole, english), each.text) << each.part << "/" << each.whole;
    EXPECT_EQ(percentText(55, 1'000, german), "5,5%");
}

TEST(Formats, datesAreShortAndUnknownOnesADash) {
    const auto noon = static_cast<double>(QDateTime(QDate(2026, 11, 22), QTime(12, 0)).toSecsSinceEpoch());
    EXPECT_EQ(dateText(noon, english), "Nov 22, 2026");
    EXPECT_EQ(dateText(noon, german), "22. Nov. 2026");
    EXPECT_EQ(dateText(0, english), "—");
    EXPECT_EQ(dateText(86'400, english), "—");
    EXPECT_NE(dateText(86'401, english), "—");
    EXPECT_EQ(dateText(std::numeric_limits<double>::quiet_NaN(), english), "—");
}

TEST(Formats, relativeDates) {
    const QDateTime now(QDate(2026, 3, 31), QTime(12, 0));
    struct Case {
        QDateTime moment;
        const char* text;
    };
    for (const Case& each : {Case{now, "now"},
                             {now.addMSecs(-400), "now"},
                             {now.addSecs(-1), "1 second ago"},
                             {now.addSecs(-59), "59 seconds ago"},
                             {now.addSecs(-60), "1 minute ago"},
                             {now.addSecs(-89), "1 minute ago"},
                             {now.addSecs(-90), "2 minutes ago"},
                             {now.addSecs(-3'600), "1 hour ago"},
                             {now.addSecs(-23 * 3'600), "23 hours ago"},
                             {now.addDays(-1), "yesterday"},
                             {now.addDays(-6), "6 days ago"},
                             {now.addDays(-7), "last week"},
                             {now.addDays(-21), "3 weeks ago"},
                             {now.addMonths(-1), "last month"},
                             {now.addMonths(-3), "3 months ago"},
                             {now.addYears(-1), "last year"},
                             {now.addYears(-12), "12 years ago"},
                             {now.addSecs(1), "in 1 second"},
                             {now.addDays(1), "tomorrow"},
                             {now.addDays(10), "next week"},
                             {now.addDays(11), "in 2 weeks"},
                             {now.addMonths(2), "in 2 months"},
                             {now.addYears(3), "in 3 years"}})
        EXPECT_EQ(relativeDateText(each.moment, now), each.text) << each.moment.toString().toStdString();
}

/// Any 64-bit date may stand on a disk, and any number in a page of QML.
TEST(Formats, extremesAreToldAtOnce) {
    QLocale::setDefault(english);
    const Formats formats;
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr double nothing = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        double figure;
        const char* relativeDate;
        const char* date;
        const char* bytes;
        const char* count;
        const char* duration;
    };
    for (const Case& each :
         {Case{0, "years ago", "—", "Zero KB", "0", "under 0.1 s"},
          {-1, "years ago", "—", "Zero KB", "-1", "under 0.1 s"},
          {1e13, "in 3168", "318857", "10 TB", "10,000,000,000,000", "166666666666 min 40 s"},
          {1e14, "in 3168", "3170843", "100 TB", "100,000,000,000,000", "1666666666666 min 40 s"},
          {9.2e18, "in 2851", "2852", "9,200,000 TB", "9,200,000,000,000,000,000", " min "},
          {0x1p63, "in 2851", "2852", "9,223,372.04 TB", "9,223,372,036,854,775,807", " min "},
          {-0x1p63, "years ago", "—", "Zero KB", "-9,223,372,036,854,775,808", "under 0.1 s"},
          {-1e14, "3168", "—", "Zero KB", "-100,000,000,000,000", "under 0.1 s"},
          {infinity, "in 2851", "2852", "9,223,372.04 TB", "9,223,372,036,854,775,807", " min "},
          {-infinity, "years ago", "—", "Zero KB", "-9,223,372,036,854,775,808", "under 0.1 s"},
          {nothing, "years ago", "—", "Zero KB", "0", "under 0.1 s"}}) {
        const auto tells = [&](const QString& text, const char* part) {
            EXPECT_TRUE(text.contains(QString::fromUtf8(part))) << each.figure << ": " << text.toStdString();
        };
        tells(formats.relativeDate(each.figure), each.relativeDate);
        tells(formats.date(each.figure), each.date);
        EXPECT_EQ(formats.bytes(each.figure), QString::fromUtf8(each.bytes)) << each.figure;
        EXPECT_EQ(formats.count(each.figure), QString::fromUtf8(each.count)) << each.figure;
        tells(formats.duration(each.figure), each.duration);
        EXPECT_FALSE(formats.percent(each.figure, 100).isEmpty());
        EXPECT_FALSE(formats.percent(1, each.figure).isEmpty());
    }
}

TEST(Formats, longTimesCountAverageYears) {
    const QDateTime now(QDate(2026, 3, 31), QTime(12, 0));
    EXPECT_EQ(relativeDateText(now.addYears(-199), now), "199 years ago");
    EXPECT_EQ(relativeDateText(now.addYears(-201), now), "201 years ago");
    EXPECT_EQ(relativeDateText(now.addYears(1'000), now), "in 1000 years");
}

TEST(Formats, scanTimes) {
    QLocale::setDefault(english);
    const Formats formats;
    EXPECT_EQ(formats.duration(0), "under 0.1 s");
    EXPECT_EQ(formats.duration(3.14), "3.1 s");
    EXPECT_EQ(formats.duration(42.4), "42 s");
    EXPECT_EQ(formats.duration(125), "2 min 5 s");
}

} // namespace
} // namespace brimlet
