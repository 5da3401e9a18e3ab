// From the bytes and English texts of the layers below to what the window shows.
#pragma once

#include "core/Localized.h"

#include <QString>
#include <string_view>

namespace brimlet {

/// Bytes as text; what is not valid UTF-8 shows as the replacement character.
inline QString shownText(std::string_view bytes) {
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

/// An English text of the layers below, in the user's language.
inline QString translatedText(std::string_view english) {
    return shownText(localized(english));
}

} // namespace brimlet
