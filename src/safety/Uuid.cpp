#include "safety/Uuid.h"

#include <algorithm>
#include <random>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr std::string_view pattern = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";

std::optional<std::uint8_t> digitValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    return std::nullopt;
}

} // namespace

Uuid Uuid::random() {
    Uuid uuid;
    // One call of the system: a std::random_device costs a hundred times as much to make.
    if (getentropy(uuid.bytes.data(), uuid.bytes.size()) != 0)
        std::generate(uuid.bytes.begin(), uuid.bytes.end(), std::random_device());
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0f) | 0x40); // version 4
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3f) | 0x80); // variant 1
    return uuid;
}

std::optional<Uuid> Uuid::fromText(std::string_view text) {
    if (text.size() != pattern.size())
        return std::nullopt;
    Uuid uuid;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (pattern[i] == '-') {
            if (text[i] != '-')
                return std::nullopt;
            continue;
        }
        const auto value = digitValue(text[i]);
        if (!value)
            return std::nullopt;
        std::uint8_t& byte = uuid.bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | *value);
    }
    return uuid;
}

std::string Uuid::text() const {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text(pattern);
    std::size_t next = 0;
    for (char& character : text) {
        if (character == '-')
            continue;
        const std::uint8_t byte = bytes[next / 2];
        character = digits[next % 2 == 0 ? byte >> 4 : byte & 15];
        ++next;
    }
    return text;
}

} // namespace brimlet
