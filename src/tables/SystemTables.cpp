#include "tables/SystemTables.h"

#include <algorithm>

namespace brimlet {

std::span<const SystemTables* const> allSystems() {
    static const std::array<const SystemTables*, 1> all = {&macosTables()};
    return all;
}

const SystemTables* systemNamed(std::string_view name) {
    const auto found =
        std::ranges::find_if(allSystems(), [&](const SystemTables* tables) { return tables->name == name; });
    return found != allSystems().end() ? *found : nullptr;
}

const SystemTables& defaultSystem() {
    return macosTables();
}

} // namespace brimlet
