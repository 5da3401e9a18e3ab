// What a property list must be like before the parsing library sees it. The library recurses into what it
// reads and copies whatever is referred to, so nesting, cycles and repeated references are bounded here.
// Pure functions; their own depth and work are bounded.
#pragma once

#include <string_view>

namespace brimlet {

/// Whether every object that can be reached from a binary list's root lies inside the bytes, none contains
/// itself, nesting stays below 128 levels, and all of them written out stay below 64 MiB.
bool isHarmlessBinaryPropertyList(std::string_view bytes);

/// Whether an XML list has few enough containers (4,096) that nesting can't go deep, however they stand, and
/// few enough references to characters (4,096), each of which costs the library a pass over the text around
/// it.
bool isHarmlessXmlPropertyList(std::string_view bytes);

} // namespace brimlet
