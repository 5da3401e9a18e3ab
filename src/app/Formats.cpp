#include "app/Formats.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QCoreApplication>
#include <QRegularExpression>

namespace brimlet {

namespace {

constexpr double lastUnknownSecond = 86'400;

/// Within 285 million years of 1970 QDateTime has a date for every second, also a unit later.
constexpr double lastTellableSecond = 9e15;

/// From here on the length of a single year no longer matters to a number of years.
constexpr qint64 longSpanSeconds = 200LL * 365 * 86'400;
constexpr double averageYearSeconds = 365.2425 * 86'400;

QString translated(const char* text, int count = -1) {
    return QCoreApplication::translate("Formats", text, nullptr, count);
}

/// A fraction as a percentage; where the sign stands is the translation's to say.
QString percentage(double fraction, int decimals, const QLocale& locale) {
    return translated(QT_TRANSLATE_NOOP("Formats", "%1%"))
        .arg(locale.toString(fraction * 100, 'f', decimals));
}

struct RelativeUnit {
    QDateTime (*later)(const QDateTime& from, int count);
    const char* onePast;
    const char* oneToCome;
    const char* manyPast;
    const char* manyToCome;
};

template <int seconds>
QDateTime laterBySeconds(const QDateTime& from, int count) {
    return from.addSecs(static_cast<qint64>(seconds) * count);
}

/// Largest first. A week or a day is counted by the calendar, so that a change of the clocks does not matter.
const std::array<RelativeUnit, 7>& relativeUnits() {
    static const std::array<RelativeUnit, 7> units = {{
        {[](const QDateTime& from, int count) { return from.addYears(count); },
         QT_TRANSLATE_NOOP("Formats", "last year"), QT_TRANSLATE_NOOP("Formats", "next year"),
         QT_TRANSLATE_NOOP("Formats", "%n years ago"), QT_TRANSLATE_NOOP("Formats", "in %n years")},
        {[](const QDateTime& from, int count) { return from.addMonths(count); },
         QT_TRANSLATE_NOOP("Formats", "last month"), QT_TRANSLATE_NOOP("Formats", "next month"),
         QT_TRANSLATE_NOOP("Formats", "%n months ago"), QT_TRANSLATE_NOOP("Formats", "in %n months")},
        {[](const QDateTime& from, int count) { return from.addDays(7LL * count); },
         QT_TRANSLATE_NOOP("Formats", "last week"), QT_TRANSLATE_NOOP("Formats", "next week"),
         QT_TRANSLATE_NOOP("Formats", "%n weeks ago"), QT_TRANSLATE_NOOP("Formats", "in %n weeks")},
        {[](const QDateTime& from, int count) { return from.addDays(count); },
         QT_TRANSLATE_NOOP("Formats", "yesterday"), QT_TRANSLATE_NOOP("Formats", "tomorrow"),
         QT_TRANSLATE_NOOP("Formats", "%n days ago"), QT_TRANSLATE_NOOP("Formats", "in %n days")},
        {laterBySeconds<3600>, QT_TRANSLATE_NOOP("Formats", "1 hour ago"),
         QT_TRANSLATE_NOOP("Formats", "in 1 hour"), QT_TRANSLATE_NOOP("Formats", "%n hours ago"),
         QT_TRANSLATE_NOOP("Formats", "in %n hours")},
        {laterBySeconds<60>, QT_TRANSLATE_NOOP("Formats", "1 minute ago"),
         QT_TRANSLATE_NOOP("Formats", "in 1 minute"), QT_TRANSLATE_NOOP("Formats", "%n minutes ago"),
         QT_TRANSLATE_NOOP("Formats", "in %n minutes")},
        {laterBySeconds<1>, QT_TRANSLATE_NOOP("Formats", "1 second ago"),
         QT_TRANSLATE_NOOP("Formats", "in 1 second"), QT_TRANSLATE_NOOP("Formats", "%n seconds ago"),
         QT_TRANSLATE_NOOP("Formats", "in %n seconds")},
    }};
    return units;
}

/// How many whole units lie between two moments that are no long span apart.
int wholeUnits(const RelativeUnit& unit, const QDateTime& from, const QDateTime& to) {
    const auto span = static_cast<double>(from.secsTo(to));
    const auto one = static_cast<double>(std::max<qint64>(1, from.secsTo(unit.later(from, 1))));
    int count = wholeNumber<int>(span / one);
    while (unit.later(from, count + 1) <= to)
        ++count;
    while (count > 0 && unit.later(from, count) > to)
        --count;
    return count;
}

int roundedUnits(const RelativeUnit& unit, const QDateTime& from, const QDateTime& to) {
    const int whole = wholeUnits(unit, from, to);
    const QDateTime lower = unit.later(from, whole);
    const QDateTime upper = unit.later(from, whole + 1);
    return lower.secsTo(to) * 2 >= lower.secsTo(upper) && whole > 0 ? whole + 1 : whole;
}

} // namespace

NumberSymbols numberSymbols(const QLocale& locale) {
    return {locale.decimalPoint().toStdString(), locale.groupSeparator().toStdString()};
}

QString bytesText(std::int64_t bytes, const QLocale& locale) {
    return QString::fromStdString(formatBytes(bytes, numberSymbols(locale)));
}

QString countText(std::int64_t count, const QLocale& locale) {
    return QString::fromStdString(formatCount(count, numberSymbols(locale)));
}

QString percentText(std::int64_t part, std::int64_t whole, const QLocale& locale) {
    if (whole < 1)
        return percentage(0, 0, locale);
    const double fraction = static_cast<double>(std::max<std::int64_t>(part, 0)) / static_cast<double>(whole);
    if (fraction < 0.001 && part >= 1)
        return QStringLiteral("<") + percentage(0.001, 1, locale);
    return percentage(fraction, fraction < 0.1 ? 1 : 0, locale);
}

QDateTime momentAt(double secondsSince1970) {
    return QDateTime::fromSecsSinceEpoch(
        wholeNumber<qint64>(std::clamp(secondsSince1970, -lastTellableSecond, lastTellableSecond)));
}

QString dateText(double secondsSince1970, const QLocale& locale) {
    if (!(secondsSince1970 > lastUnknownSecond))
        return QStringLiteral("—");
    // Between the locale's short form, all digits, and its long one: without the day of the week and with the
    // month's short name.
    static const QRegularExpression weekday(QStringLiteral("^d{3,4}[,\\s]*|[,\\s]*d{3,4}$"));
    QString format = locale.dateFormat(QLocale::LongFormat);
    format.remove(weekday);
    format.replace(QStringLiteral("MMMM"), QStringLiteral("MMM"));
    return locale.toString(momentAt(secondsSince1970).date(), format);
}

QString relativeDateText(const QDateTime& moment, const QDateTime& now) {
    const bool past = moment <= now;
    const QDateTime& from = past ? moment : now;
    const QDateTime& to = past ? now : moment;
    if (const qint64 span = from.secsTo(to); span >= longSpanSeconds) {
        const RelativeUnit& year = relativeUnits().front();
        return translated(past ? year.manyPast : year.manyToCome,
                          wholeNumber<int>(std::round(static_cast<double>(span) / averageYearSeconds)));
    }
    for (const RelativeUnit& unit : relativeUnits()) {
        if (wholeUnits(unit, from, to) < 1)
            continue;
        const int count = roundedUnits(unit, from, to);
        if (count == 1)
            return translated(past ? unit.onePast : unit.oneToCome);
        return translated(past ? unit.manyPast : unit.manyToCome, count);
    }
    return translated(QT_TRANSLATE_NOOP("Formats", "now"));
}

QString Formats::relativeDate(double secondsSince1970) const {
    return relativeDateText(momentAt(secondsSince1970), QDateTime::currentDateTime());
}

QString Formats::duration(double seconds) const {
    if (!(seconds >= 0.1))
        return tr("under %1 s").arg(QLocale().toString(0.1, 'f', 1));
    if (seconds < 60)
        return tr("%1 s").arg(QLocale().toString(seconds, 'f', seconds < 10 ? 1 : 0));
    const auto whole = wholeNumber<qint64>(seconds);
    return tr("%1 min %2 s").arg(whole / 60).arg(whole % 60);
}

} // namespace brimlet
