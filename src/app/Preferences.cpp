#include "app/Preferences.h"

#include "core/Localized.h"

#include <algorithm>
#include <array>

namespace brimlet {

namespace {

struct ScheduleRow {
    CleanSchedule schedule;
    std::string_view raw;
    std::string_view title;
};

constexpr std::array<ScheduleRow, 4> schedules = {{
    {CleanSchedule::off, "off", "Off"},
    {CleanSchedule::daily, "daily", "Every day"},
    {CleanSchedule::weekly, "weekly", "Every week"},
    {CleanSchedule::monthly, "monthly", "Every month"},
}};

template <typename Type>
std::optional<Type> typedValue(const PreferencesStore& store, std::string_view key) {
    const auto value = store.value(key);
    const Type* typed = value ? std::get_if<Type>(&*value) : nullptr;
    return typed != nullptr ? std::optional<Type>(*typed) : std::nullopt;
}

} // namespace

std::string_view rawValue(CleanSchedule schedule) {
    return schedules.at(static_cast<std::size_t>(schedule)).raw;
}

CleanSchedule cleanScheduleFromRaw(std::string_view raw) {
    const auto* row = std::find_if(schedules.begin(), schedules.end(),
                                   [&](const ScheduleRow& candidate) { return candidate.raw == raw; });
    return row == schedules.end() ? CleanSchedule::off : row->schedule;
}

std::string title(CleanSchedule schedule) {
    return localized(schedules.at(static_cast<std::size_t>(schedule)).title);
}

CleanSchedule Preferences::cleanSchedule() const {
    return cleanScheduleFromRaw(textOr(preference::cleanSchedule, {}));
}

void Preferences::setCleanSchedule(CleanSchedule schedule) {
    m_store.setValue(preference::cleanSchedule, std::string(rawValue(schedule)));
}

std::optional<PreferenceDate> Preferences::lastAutoClean() const {
    return typedValue<PreferenceDate>(m_store, preference::lastAutoClean);
}

void Preferences::setLastAutoClean(PreferenceDate time, std::int64_t bytesFreed) {
    m_store.setValue(preference::lastAutoClean, time);
    m_store.setValue(preference::lastAutoCleanBytes, bytesFreed);
}

std::string Preferences::textOr(std::string_view key, std::string_view fallback) const {
    return typedValue<std::string>(m_store, key).value_or(std::string(fallback));
}

bool Preferences::flagOr(std::string_view key, bool fallback) const {
    return typedValue<bool>(m_store, key).value_or(fallback);
}

std::int64_t Preferences::numberOr(std::string_view key, std::int64_t fallback) const {
    return typedValue<std::int64_t>(m_store, key).value_or(fallback);
}

} // namespace brimlet
