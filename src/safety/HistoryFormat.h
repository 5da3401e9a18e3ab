// The history's file format: a JSON array of objects with the keys "id", "date", "originalPath", "trashPath",
// "size" and "restored", newest first. An identifier is upper-case text, a date the number of seconds since
// 2001-01-01 00:00:00 UTC, "trashPath" is left out when there is none. "identity" tells what arrived in the
// Trash; it may be missing, and who doesn't know it passes over it.
#pragma once

#include "safety/DeletionRecords.h"
#include "json/Json.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// The file's text.
std::string historyText(const std::vector<HistoryEntry>& entries);

/// The entries of a file's text, in its order; empty when any of them lacks a key or has one of another type.
/// Keys that are not known are passed over, and a whole number counts as a number of either kind.
std::optional<std::vector<HistoryEntry>> historyFromText(std::string_view text);

/// One entry.
void addHistoryText(std::string& text, const HistoryEntry& entry);
std::optional<HistoryEntry> historyFromJson(const Json& object);

/// The present moment in the history's terms.
double historyDateNow();

} // namespace brimlet
