// Names of entries that exist only while a move is under way.
#pragma once

#include <string>
#include <string_view>

namespace brimlet {

/// A fresh hidden name that nothing else bears: ".brimlet-" and 32 hexadecimal digits.
std::string scratchName();

/// Whether a name has the form of one from scratchName().
bool isScratchName(std::string_view name);

} // namespace brimlet
