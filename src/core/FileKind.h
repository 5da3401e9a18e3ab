// What a file is, told by its extension alone. Drives the By Type screen.
// Pure functions over constant tables; callable from any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace brimlet {

enum class FileKind : std::uint8_t {
    document,
    image,
    video,
    audio,
    archive,
    diskImage,
    code,
    application,
    other,
};

inline constexpr std::size_t fileKindCount = 9;

/// How a kind or a bucket presents itself.
struct CategoryLook {
    std::string_view caseName; ///< stable identifier for JSON, e.g. "diskImage"
    std::string_view title;    ///< English text, key of the translation look-up
    std::string_view symbol;   ///< name in the icon table
    std::uint32_t color;       ///< opaque sRGB, 0xRRGGBB
};

/// All kinds in declaration order.
const std::array<FileKind, fileKindCount>& allFileKinds();

const CategoryLook& look(FileKind kind);

/// The kind of a file from the bytes of its name: the extension after the last dot that isn't the first byte,
/// at most 12 bytes, ASCII case ignored. Allocates nothing.
FileKind fileKindForName(std::string_view name);

} // namespace brimlet
