// The user's home folder.
#pragma once

#include <string>

namespace brimlet {

/// Absolute, without a trailing slash (but "/" itself stays). `HOME` decides; without it the user database
/// does.
std::string homeFolder();

} // namespace brimlet
