// The user's stored preferences: typed values under keys.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace brimlet {

using PreferenceDate = std::chrono::sys_time<std::chrono::milliseconds>;
using PreferenceValue = std::variant<std::string, bool, std::int64_t, PreferenceDate>;

/// Main thread. A value keeps the type it was stored with; a key that was never written has no value.
class PreferencesStore {
public:
    virtual ~PreferencesStore() = default;

    virtual std::optional<PreferenceValue> value(std::string_view key) const = 0;

    /// Stores at once. A failure to store is dropped: the value holds for the rest of the session.
    virtual void setValue(std::string_view key, const PreferenceValue& value) = 0;

    /// Takes the key out, as if it had never been written.
    virtual void removeValue(std::string_view key) = 0;
};

} // namespace brimlet
