#include "core/TextFold.h"

#include <algorithm>
#include <atomic>

namespace brimlet {

namespace {

std::atomic<TextFold> textFold = nullptr;

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

void setTextFold(TextFold fold) {
    textFold = fold;
}

std::string foldedText(std::string_view text) {
    if (const TextFold fold = textFold; fold != nullptr)
        return fold(text);
    std::string folded(text);
    std::ranges::transform(folded, folded.begin(), asciiLower);
    return folded;
}

} // namespace brimlet
