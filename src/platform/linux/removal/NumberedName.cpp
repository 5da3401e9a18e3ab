#include "platform/linux/removal/NumberedName.h"

#include <climits>

namespace brimlet {

namespace {

/// Where the extension begins, with its dot; the end where there is none.
std::size_t extensionStart(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    const bool isExtension = dot != std::string_view::npos && dot > 0 && dot + 1 < name.size();
    return isExtension && name.size() - dot <= NAME_MAX / 2 ? dot : name.size();
}

bool continuesSequence(char byte) {
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

/// At most `bytes` of the text. A sequence is no longer than four bytes; what is longer is not UTF-8 and is
/// cut.
std::string_view shortened(std::string_view text, std::size_t bytes) {
    if (text.size() <= bytes)
        return text;
    std::size_t end = bytes;
    for (int back = 0; back < 3 && end > 0 && continuesSequence(text[end]); ++back)
        --end;
    return text.substr(0, continuesSequence(text[end]) ? bytes : end);
}

} // namespace

std::string numberedName(std::string_view name, unsigned number) {
    if (number <= 1)
        return std::string(name);
    const std::size_t dot = extensionStart(name);
    std::string ending = " " + std::to_string(number);
    ending += name.substr(dot);
    return std::string(shortened(name.substr(0, dot), NAME_MAX - ending.size())) + ending;
}

} // namespace brimlet
