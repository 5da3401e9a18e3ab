#include "views/base/LocaleFold.h"

#include <algorithm>

#include <QLocale>
#include <QString>

namespace brimlet {

namespace {

bool hasTwoLettersI(QLocale::Language language) {
    return language == QLocale::Turkish || language == QLocale::Azerbaijani;
}

std::string lowerAscii(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return folded;
}

} // namespace

std::string foldForLocale(std::string_view text) {
    const bool twoLettersI = hasTwoLettersI(QLocale().language());
    const bool isAscii =
        std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (isAscii && !twoLettersI)
        return lowerAscii(text);
    QString folded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
                         .normalized(QString::NormalizationForm_C);
    if (twoLettersI)
        folded.replace(QChar(u'I'), QChar(u'ı')).replace(QChar(u'İ'), QChar(u'i'));
    return folded.toCaseFolded().normalized(QString::NormalizationForm_C).toStdString();
}

} // namespace brimlet
