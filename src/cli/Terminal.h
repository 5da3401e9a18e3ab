// What the commands share to write for people: what the terminal can do, text made harmless and fitted,
// bars, colours, and a progress line. Names on disk are bytes that anyone may have chosen; they reach a
// terminal only through `printable`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brimlet {

struct Terminal {
    bool isTerminal = false;
    bool hasColor = false;  ///< a terminal that isn't dumb, without NO_COLOR
    std::size_t width = 80; ///< columns; of a pipe or file, COLUMNS or 80
};

Terminal standardOutput();
Terminal standardError();

/// UTF-8 for a terminal: control and direction-changing characters and bytes that are no UTF-8 are escaped
/// ("\n", "\x1b", "\u202e").
std::string printable(std::string_view bytes);

/// Columns that a printable text takes.
std::size_t columnsOf(std::string_view text);

/// The text in at most `columns`, its middle replaced by "…" where it is longer, so that the start and the
/// name at the end of a path stay.
std::string fitted(std::string_view text, std::size_t columns);

enum class Align { left, right };

/// The text filled with spaces to `columns`; a longer one stays.
std::string padded(std::string_view text, std::size_t columns, Align align = Align::left);

/// A bar for `share` of 1 in at most `columns`, drawn in eighths of a column. A share above 0 is visible.
std::string bar(double share, std::size_t columns);

/// The text in an sRGB colour (0xRRGGBB), bold, or faint; unchanged on a terminal without colour.
std::string colored(std::string_view text, std::uint32_t color, const Terminal& terminal);
std::string bold(std::string_view text, const Terminal& terminal);
std::string faint(std::string_view text, const Terminal& terminal);

/// One line on standard error that is written over and over; silent where that is no terminal. The object's
/// end clears the line.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    bool isShown() const { return m_terminal.isTerminal; }

    /// figures  stays whole
    /// path     takes the rest of the line
    void show(std::string_view figures, std::string_view path);
    void clear();

private:
    Terminal m_terminal;
    bool m_written = false;
};

} // namespace brimlet
