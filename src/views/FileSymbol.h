// The symbol that stands for a file or folder, told by its name alone.
#pragma once

#include <QString>
#include <string_view>

namespace brimlet {

/// An application's, a known kind's, or a folder's where the name has no extension.
QString symbolForName(std::string_view name);

} // namespace brimlet
