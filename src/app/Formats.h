// How figures and dates read everywhere in the window, in the user's locale.
//
// The functions take the locale and the present moment, so that they can be told both; `Formats` is what QML
// calls, with the default locale and now.
#pragma once

#include "core/ByteFormat.h"
#include "core/WholeNumber.h"

#include <cstdint>
#include <QDateTime>
#include <QLocale>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

/// The characters that a locale writes numbers with.
NumberSymbols numberSymbols(const QLocale& locale);

QString bytesText(std::int64_t bytes, const QLocale& locale);
QString countText(std::int64_t count, const QLocale& locale);

/// The share of `part` in `whole`: "12%", "3.4%", "<0.1%". A negative part counts as 0.
QString percentText(std::int64_t part, std::int64_t whole, const QLocale& locale);

/// A moment of the user's calendar; the nearest that it can tell where a file system keeps a date beyond it.
QDateTime momentAt(double secondsSince1970);

/// A day without time, "Nov 22, 2026"; "—" for a time in the first day of 1970 or before, which means
/// unknown.
QString dateText(double secondsSince1970, const QLocale& locale);

/// "now", "5 minutes ago", "yesterday", "3 months ago", "tomorrow": the largest unit that fits, rounded by
/// the calendar. Both are valid moments; however far they lie apart, it takes the same few steps.
QString relativeDateText(const QDateTime& moment, const QDateTime& now);

/// The façade that QML sees. Sizes and counts come as numbers of up to 2^53; what is beyond the range of a
/// size, or no number at all, is brought into it.
class Formats : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE QString bytes(double bytes) const {
        return bytesText(wholeNumber<std::int64_t>(bytes), QLocale());
    }
    Q_INVOKABLE QString count(double count) const {
        return countText(wholeNumber<std::int64_t>(count), QLocale());
    }
    Q_INVOKABLE QString percent(double part, double of) const {
        return percentText(wholeNumber<std::int64_t>(part), wholeNumber<std::int64_t>(of), QLocale());
    }
    Q_INVOKABLE QString date(double secondsSince1970) const { return dateText(secondsSince1970, QLocale()); }
    Q_INVOKABLE QString relativeDate(double secondsSince1970) const;
    Q_INVOKABLE QString duration(double seconds) const;
};

} // namespace brimlet
