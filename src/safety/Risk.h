// How dangerous a removal is, and why. Plain values.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace brimlet {

/// Ordered: a higher value is the stricter one.
enum class Risk : std::uint8_t {
    safe = 0,       ///< may be removed on a plain confirmation
    review = 1,     ///< removed only when the user has explicitly included it
    protected_ = 2, ///< never removed by anything, whatever the user selects
};

inline constexpr std::array<Risk, 3> allRisks = {Risk::safe, Risk::review, Risk::protected_};

/// "safe", "review", "protected": the stable identifier for JSON.
std::string_view caseName(Risk risk);

/// "Safe", "Review", "Protected" in the user's language.
std::string label(Risk risk);

struct SafetyVerdict {
    Risk risk = Risk::protected_;
    std::string
        reason; ///< the sentence shown to the user, in the user's language; never empty in a verdict given
    bool operator==(const SafetyVerdict&) const = default;
};

} // namespace brimlet
