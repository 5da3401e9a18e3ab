#include "json/Json.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace brimlet {

// The library below accepts only valid Unicode. A foreign byte therefore travels through it as `mark` and two
// hexadecimal digits; `mark` itself, a noncharacter that no text should hold, as `mark` and "00".

namespace {

constexpr std::string_view mark = "\xf4\x8f\xbf\xbf"; // U+10FFFF
constexpr std::string_view markForMark = "\xf4\x8f\xbf\xbf"
                                         "00";

std::string hexDigits(unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    return {digits[byte >> 4], digits[byte & 15]};
}

std::optional<std::uint32_t> hexNumber(std::string_view digits) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

/// The length of the valid UTF-8 sequence that `text` begins with, or 0.
std::size_t sequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xbf) {
        return byte(i) >= low && byte(i) <= high;
    };
    const unsigned first = byte(0);
    if (first < 0x80)
        return 1;
    if (first >= 0xc2 && first <= 0xdf)
        return follows(1) ? 2 : 0;
    if (first >= 0xe0 && first <= 0xef) {
        const bool second = first == 0xe0   ? follows(1, 0xa0)
                            : first == 0xed ? follows(1, 0x80, 0x9f)
                                            : follows(1);
        return second && follows(2) ? 3 : 0;
    }
    if (first >= 0xf0 && first <= 0xf4) {
        const bool second = first == 0xf0   ? follows(1, 0x90)
                            : first == 0xf4 ? follows(1, 0x80, 0x8f)
                                            : follows(1);
        return second && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

/// The number of a \uXXXX escape at the start of `text`, or empty.
std::optional<std::uint32_t> unicodeEscape(std::string_view text) {
    if (text.size() < 6 || !text.starts_with("\\u"))
        return std::nullopt;
    return hexNumber(text.substr(2, 4));
}

/// Rewrites what stands for a foreign byte, or for `mark`, in a document's text.
std::string withMarks(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        std::size_t taken = 1;
        if (text.starts_with(mark)) {
            result += markForMark;
            taken = mark.size();
        } else if (text.front() != '\\') {
            result += text.front();
        } else if (const auto number = unicodeEscape(text); !number) {
            taken = std::min<std::size_t>(2, text.size());
            result += text.substr(0, taken);
        } else if (*number >= 0xdc80 && *number <= 0xdcff) {
            result += mark;
            result += hexDigits(static_cast<unsigned char>(*number & 0xff));
            taken = 6;
        } else {
            const bool high = *number >= 0xd800 && *number <= 0xdbff;
            taken = high && unicodeEscape(text.substr(6)) ? 12 : 6;
            if (*number == 0xdbff && unicodeEscape(text.substr(6)) == 0xdfff)
                result += markForMark;
            else
                result += text.substr(0, taken);
        }
        text.remove_prefix(taken);
    }
    return result;
}

/// Replaces each mark with what `foreignByte` gives for its byte; a marked mark becomes itself.
template <typename ForeignByte>
std::string withoutMarks(std::string_view text, ForeignByte foreignByte) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next = std::min(text.find(mark, at), text.size());
        result += text.substr(at, next - at);
        if (next == text.size())
            break;
        const auto byte = hexNumber(text.substr(next + mark.size(), 2)).value_or(0);
        if (byte == 0)
            result += mark;
        else
            result += foreignByte(static_cast<unsigned char>(byte));
        at = next + mark.size() + 2;
    }
    return result;
}

} // namespace

Json jsonString(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t length = sequenceLength(bytes);
        if (length == 0) {
            text += mark;
            text += hexDigits(static_cast<unsigned char>(bytes.front()));
        } else if (bytes.starts_with(mark)) {
            text += markForMark;
        } else {
            text += bytes.substr(0, length);
        }
        bytes.remove_prefix(std::max<std::size_t>(1, length));
    }
    return text;
}

std::string bytesOf(const Json& string) {
    return withoutMarks(string.get_ref<const std::string&>(),
                        [](unsigned char byte) { return std::string(1, static_cast<char>(byte)); });
}

std::string writeJson(const Json& document, JsonLayout layout) {
    return withoutMarks(document.dump(layout == JsonLayout::indented ? 2 : -1),
                        [](unsigned char byte) { return "\\udc" + hexDigits(byte); });
}

void addJsonString(std::string& text, std::string_view bytes) {
    constexpr std::string_view escaped = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    const auto isPlain = [](char byte) { return byte >= 0x20 && byte < 0x7f && byte != '"' && byte != '\\'; };
    text += '"';
    while (!bytes.empty()) {
        const auto plain = std::find_if_not(bytes.begin(), bytes.end(), isPlain) - bytes.begin();
        text += bytes.substr(0, static_cast<std::size_t>(plain));
        bytes.remove_prefix(static_cast<std::size_t>(plain));
        if (bytes.empty())
            break;
        const char first = bytes.front();
        const std::size_t length = sequenceLength(bytes);
        if (const std::size_t known = escaped.find(first); known != std::string_view::npos) {
            text += '\\';
            text += letters[known];
        } else if (length == 0) {
            text += "\\udc" + hexDigits(static_cast<unsigned char>(first));
        } else if (static_cast<unsigned char>(first) < 0x20) {
            text += "\\u00" + hexDigits(static_cast<unsigned char>(first));
        } else {
            text += bytes.substr(0, length);
        }
        bytes.remove_prefix(std::max<std::size_t>(1, length));
    }
    text += '"';
}

std::optional<Json> readJson(std::string_view text) {
    Json document = Json::parse(withMarks(text), nullptr, false);
    if (document.is_discarded())
        return std::nullopt;
    return document;
}

} // namespace brimlet
