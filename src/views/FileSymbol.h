// The symbol that stands for a file or folder, told by its name alone.
#pragma once

#include <QString>
#include <string_view>

namespace brimlet {

/// An application's, a known kind's, or else a folder's: what the catalogue finds mostly is one.
QString symbolForName(std::string_view name);

} // namespace brimlet
