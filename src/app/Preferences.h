// Every setting of the application, by its own name and type, over the user's stored preferences.
//
// Nothing is cached: each read asks the store. A key never written, or written with another type, gives its
// default. Main thread.
#pragma once

#include "platform/PreferencesStore.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace brimlet {

/// The keys under which settings are stored.
namespace preference {
inline constexpr std::string_view excludedPaths = "excludedPaths";
inline constexpr std::string_view permanentDelete = "permanentDelete";
inline constexpr std::string_view accessOnboardingSkipped = "accessOnboardingSkipped";
inline constexpr std::string_view initialSection = "initialSection";
inline constexpr std::string_view autoScan = "autoScan";
inline constexpr std::string_view cleanSchedule = "cleanSchedule";
inline constexpr std::string_view lowSpaceGB = "lowSpaceGB";
inline constexpr std::string_view lowSpaceNotified = "lowSpaceNotified";
inline constexpr std::string_view menuBar = "menuBar";
inline constexpr std::string_view lastAutoClean = "lastAutoClean";
inline constexpr std::string_view lastAutoCleanBytes = "lastAutoCleanBytes";
inline constexpr std::string_view explorerMode = "explorerMode";
} // namespace preference

/// How often safe junk is cleaned by itself.
enum class CleanSchedule { off, daily, weekly, monthly };

/// "off", "daily", "weekly", "monthly": the text that is stored.
std::string_view rawValue(CleanSchedule schedule);

/// `off` for any text that names none.
CleanSchedule cleanScheduleFromRaw(std::string_view raw);

/// "Off", "Every day", "Every week", "Every month" in the user's language.
std::string title(CleanSchedule schedule);

class Preferences {
public:
    /// The store must outlive this object.
    explicit Preferences(PreferencesStore& store)
        : m_store(store) {}

    /// The exclusion list as stored; see Exclusions.h.
    std::string excludedPaths() const { return textOr(preference::excludedPaths, {}); }
    void setExcludedPaths(const std::string& raw) { m_store.setValue(preference::excludedPaths, raw); }

    bool permanentDelete() const { return flagOr(preference::permanentDelete, false); }
    void setPermanentDelete(bool on) { m_store.setValue(preference::permanentDelete, on); }

    bool accessOnboardingSkipped() const { return flagOr(preference::accessOnboardingSkipped, false); }
    void setAccessOnboardingSkipped(bool on) { m_store.setValue(preference::accessOnboardingSkipped, on); }

    std::string initialSection() const { return textOr(preference::initialSection, {}); }
    std::string autoScan() const { return textOr(preference::autoScan, {}); }

    CleanSchedule cleanSchedule() const;
    void setCleanSchedule(CleanSchedule schedule);

    /// Decimal gigabytes; 0 or less turns the warning off.
    std::int64_t lowSpaceGB() const { return numberOr(preference::lowSpaceGB, 10); }
    void setLowSpaceGB(std::int64_t limit) { m_store.setValue(preference::lowSpaceGB, limit); }

    bool lowSpaceNotified() const { return flagOr(preference::lowSpaceNotified, false); }
    void setLowSpaceNotified(bool given) { m_store.setValue(preference::lowSpaceNotified, given); }

    bool menuBar() const { return flagOr(preference::menuBar, true); }
    void setMenuBar(bool on) { m_store.setValue(preference::menuBar, on); }

    std::optional<PreferenceDate> lastAutoClean() const;
    std::int64_t lastAutoCleanBytes() const { return numberOr(preference::lastAutoCleanBytes, 0); }
    void setLastAutoClean(PreferenceDate time, std::int64_t bytesFreed);

    /// "list" or "map".
    std::string explorerMode() const { return textOr(preference::explorerMode, "list"); }
    void setExplorerMode(const std::string& raw) { m_store.setValue(preference::explorerMode, raw); }

private:
    std::string textOr(std::string_view key, std::string_view fallback) const;
    bool flagOr(std::string_view key, bool fallback) const;
    std::int64_t numberOr(std::string_view key, std::int64_t fallback) const;

    PreferencesStore& m_store;
};

} // namespace brimlet
