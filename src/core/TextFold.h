// The one way to make text comparable regardless of case. The layers below the application fold ASCII only;
// the application connects the folding of the user's locale.
#pragma once

#include <string>
#include <string_view>

namespace brimlet {

/// Folds a text of any bytes. Must be callable from any thread, and folding two texts joined by "/" must give
/// the two folded texts joined by "/".
using TextFold = std::string (*)(std::string_view text);

/// Connects the folding; null goes back to ASCII. Called at start, before other threads run.
void setTextFold(TextFold fold);

/// Texts that differ only in case fold to the same bytes.
std::string foldedText(std::string_view text);

} // namespace brimlet
