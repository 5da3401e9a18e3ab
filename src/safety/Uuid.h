// A universally unique identifier, as a value.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brimlet {

struct Uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// A fresh random one (version 4).
    static Uuid random();

    /// From 8-4-4-4-12 hexadecimal digits of either case; empty for anything else.
    static std::optional<Uuid> fromText(std::string_view text);

    /// 8-4-4-4-12 upper-case hexadecimal digits.
    std::string text() const;

    auto operator<=>(const Uuid&) const = default;
};

} // namespace brimlet
