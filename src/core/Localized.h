// The one look-up of translated texts. The layers below the application speak English and hand it through
// here; the application connects a translator at start.
#pragma once

#include <string>
#include <string_view>

namespace brimlet {

/// Translates an English text. Must be callable from any thread.
using TextLookup = std::string (*)(std::string_view english);

/// Connects the translator; null goes back to English. Called at start, before other threads run.
void setTextLookup(TextLookup lookup);

/// The text in the user's language, or `english` itself. UTF-8.
std::string localized(std::string_view english);

} // namespace brimlet
