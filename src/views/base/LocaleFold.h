// Case folding as the user's locale has it, for searches and sorting by name.
#pragma once

#include <string>
#include <string_view>

namespace brimlet {

/// UTF-8 with case folded, composed and decomposed accents made the same; Turkish and Azeri keep their two
/// letters i apart. What is not UTF-8 is replaced. Any thread.
std::string foldForLocale(std::string_view text);

} // namespace brimlet
