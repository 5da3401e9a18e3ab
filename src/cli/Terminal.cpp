#include "cli/Terminal.h"

#include "core/WholeNumber.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <optional>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

namespace brimlet {

namespace {

/// One character of a text, or one byte that is no UTF-8.
struct Character {
    std::string_view bytes;
    char32_t code = 0;
    bool isValid = false;
};

std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

Character firstCharacter(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const Character invalid{text.substr(0, 1), byteAt(0), false};
    const std::size_t length = sequenceLength(byteAt(0));
    if (length == 0 || length > text.size())
        return invalid;
    constexpr std::array<unsigned char, 5> leadMask = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t code = byteAt(0) & leadMask[length];
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80)
            return invalid;
        code = (code << 6) | (byteAt(i) & 0x3F);
    }
    constexpr std::array<char32_t, 5> least = {0, 0, 0x80, 0x800, 0x10000};
    if (code < least[length] || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return invalid;
    return {text.substr(0, length), code, true};
}

/// Characters that move the cursor, end the line or turn the direction of what follows.
bool isHarmless(char32_t code) {
    const bool control = code < 0x20 || (code >= 0x7F && code <= 0x9F);
    const bool separator = code == 0x2028 || code == 0x2029;
    const bool direction = code == 0x061C || code == 0x200E || code == 0x200F ||
                           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return !control && !separator && !direction && code != 0xFEFF;
}

std::string escaped(const Character& character) {
    if (character.code == '\n')
        return "\\n";
    if (character.code == '\t')
        return "\\t";
    if (character.code == '\r')
        return "\\r";
    std::array<char, 16> text{};
    const char* format = character.isValid && character.code > 0x7F ? "\\u%04x" : "\\x%02x";
    std::snprintf(text.data(), text.size(), format, static_cast<unsigned>(character.code));
    return text.data();
}

std::size_t columnsOf(const Character& character) {
    if (!character.isValid)
        return 1;
    return static_cast<std::size_t>(std::max(0, wcwidth(static_cast<wchar_t>(character.code))));
}

std::vector<Character> charactersOf(std::string_view text) {
    std::vector<Character> characters;
    while (!text.empty()) {
        characters.push_back(firstCharacter(text));
        text.remove_prefix(characters.back().bytes.size());
    }
    return characters;
}

std::optional<std::size_t> widthFromEnvironment() {
    const char* columns = std::getenv("COLUMNS");
    const long width = columns != nullptr ? std::strtol(columns, nullptr, 10) : 0;
    if (width <= 0 || width > 10'000)
        return std::nullopt;
    return static_cast<std::size_t>(width);
}

Terminal terminalOf(int descriptor) {
    Terminal terminal;
    terminal.isTerminal = isatty(descriptor) == 1;
    winsize size{};
    if (terminal.isTerminal && ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        terminal.width = size.ws_col;
    else
        terminal.width = widthFromEnvironment().value_or(terminal.width);
    const char* noColor = std::getenv("NO_COLOR");
    const char* name = std::getenv("TERM");
    const bool isDumb = name == nullptr || std::string_view(name) == "dumb";
    terminal.hasColor = terminal.isTerminal && !isDumb && (noColor == nullptr || *noColor == '\0');
    return terminal;
}

bool hasTrueColor() {
    const char* depth = std::getenv("COLORTERM");
    return depth != nullptr && (std::string_view(depth) == "truecolor" || std::string_view(depth) == "24bit");
}

std::string styled(std::string_view text, const std::string& style, const Terminal& terminal) {
    if (!terminal.hasColor || text.empty())
        return std::string(text);
    return "\x1b[" + style + "m" + std::string(text) + "\x1b[0m";
}

} // namespace

Terminal standardOutput() {
    return terminalOf(STDOUT_FILENO);
}

Terminal standardError() {
    return terminalOf(STDERR_FILENO);
}

std::string printable(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Character character = firstCharacter(bytes);
        if (character.isValid && isHarmless(character.code))
            text += character.bytes;
        else
            text += escaped(character);
        bytes.remove_prefix(character.bytes.size());
    }
    return text;
}

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    for (const Character& character : charactersOf(text))
        columns += columnsOf(character);
    return columns;
}

std::string fitted(std::string_view text, std::size_t columns) {
    if (columnsOf(text) <= columns)
        return std::string(text);
    if (columns == 0)
        return {};
    const std::vector<Character> characters = charactersOf(text);
    const std::size_t forHead = (columns - 1) / 3;
    std::size_t used = 0;
    std::string head;
    for (const Character& character : characters) {
        if (used + columnsOf(character) > forHead)
            break;
        used += columnsOf(character);
        head += character.bytes;
    }
    auto tail = characters.end();
    while (tail != characters.begin() && used + columnsOf(*(tail - 1)) <= columns - 1) {
        --tail;
        used += columnsOf(*tail);
    }
    std::string result = head + "…";
    for (; tail != characters.end(); ++tail)
        result += tail->bytes;
    return result;
}

std::string padded(std::string_view text, std::size_t columns, Align align) {
    const std::size_t used = columnsOf(text);
    const std::string fill(used < columns ? columns - used : 0, ' ');
    return align == Align::left ? std::string(text) + fill : fill + std::string(text);
}

std::string bar(double share, std::size_t columns) {
    constexpr std::array<std::string_view, 8> parts = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
    if (!(share > 0))
        return {};
    const double eighths = std::round(std::min(share, 1.0) * static_cast<double>(columns) * 8);
    const auto drawn = std::max<std::size_t>(1, wholeNumber<std::size_t>(eighths));
    std::string text;
    for (std::size_t i = 0; i < drawn / 8; ++i)
        text += "█";
    text += parts[drawn % 8];
    return text;
}

std::string colored(std::string_view text, std::uint32_t color, const Terminal& terminal) {
    const std::array<std::uint32_t, 3> rgb = {(color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF};
    if (hasTrueColor()) {
        return styled(text,
                      "38;2;" + std::to_string(rgb[0]) + ";" + std::to_string(rgb[1]) + ";" +
                          std::to_string(rgb[2]),
                      terminal);
    }
    // The 6 × 6 × 6 cube of a terminal with 256 colours.
    const auto level = [](std::uint32_t value) { return (value * 5 + 127) / 255; };
    return styled(text, "38;5;" + std::to_string(16 + 36 * level(rgb[0]) + 6 * level(rgb[1]) + level(rgb[2])),
                  terminal);
}

std::string bold(std::string_view text, const Terminal& terminal) {
    return styled(text, "1", terminal);
}

std::string faint(std::string_view text, const Terminal& terminal) {
    return styled(text, "2", terminal);
}

ProgressLine::ProgressLine()
    : m_terminal(standardError()) {}

ProgressLine::~ProgressLine() {
    clear();
}

void ProgressLine::show(std::string_view figures, std::string_view path) {
    if (!isShown())
        return;
    const std::size_t used = columnsOf(figures) + 2;
    const std::size_t left = m_terminal.width > used + 1 ? m_terminal.width - used - 1 : 0;
    const std::string line =
        "\r" + std::string(figures) + "  " + faint(fitted(printable(path), left), m_terminal) + "\x1b[K";
    std::fputs(line.c_str(), stderr);
    m_written = true;
}

void ProgressLine::clear() {
    if (m_written)
        std::fputs("\r\x1b[K", stderr);
    m_written = false;
}

} // namespace brimlet
