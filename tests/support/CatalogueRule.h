// A rule of a Mac's catalogue by its id, for tests that need one which is known.
#pragma once

#include "tables/SystemTables.h"

#include <stdexcept>

namespace brimlet::test {

inline const JunkRule& macRule(std::string_view id) {
    const JunkRule* rule = junkRule(macosTables().junk.rules, id);
    return rule != nullptr ? *rule : throw std::invalid_argument(std::string(id));
}

} // namespace brimlet::test
