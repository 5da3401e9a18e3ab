#include "core/Localized.h"

#include <atomic>

namespace brimlet {

namespace {
std::atomic<TextLookup> textLookup = nullptr;
}

void setTextLookup(TextLookup lookup) {
    textLookup = lookup;
}

std::string localized(std::string_view english) {
    const TextLookup lookup = textLookup;
    return lookup != nullptr ? lookup(english) : std::string(english);
}

} // namespace brimlet
