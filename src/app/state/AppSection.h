// The screens of the main window.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brimlet {

enum class AppSection : std::uint8_t {
    smartClean,
    overview,
    explorer,
    types,
    large,
    systemData,
    apps,
    leftovers,
    loginItems,
    junk,
    developer,
    duplicates,
    history,
};

struct AppSectionLook {
    AppSection section;
    std::string_view rawValue; ///< the text that is stored, and that QML knows the section by
    std::string_view title;    ///< English text, key of the translation look-up
    std::string_view symbol;   ///< name in the icon table
};

/// All sections in declaration order.
const std::array<AppSectionLook, 13>& allSections();

const AppSectionLook& look(AppSection section);

std::optional<AppSection> sectionFromRaw(std::string_view raw);

} // namespace brimlet
