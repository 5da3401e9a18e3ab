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
    struct Case {
        std::int64_t part;
        std::int64_t whole;
        const char* text;
    };
    for (const Case& each : {Case{0, 100, "0%"},
                             {5, 0, "0%"},
                             {5, -1, "0%"},
                             {1, 10, "10%"},
                             {99, 1'000, "9.9%"},
                             {1, 1'000, "0.1%"},
                             {1, 1'001, "<0.1%"},
                             {1, std::numeric_limits<std::int64_t>::max(), "<0.1%"},
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
