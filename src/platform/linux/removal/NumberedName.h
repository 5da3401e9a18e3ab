// Other names for an entry whose own is taken.
#pragma once

#include <string>
#include <string_view>

namespace brimlet {

/// The number-th name for an entry, as a desktop gives it: "name.ext", "name 2.ext", "name 3.ext". At most
/// 255 bytes: what comes before the number is shortened, and no UTF-8 sequence is cut apart.
std::string numberedName(std::string_view name, unsigned number);

} // namespace brimlet
