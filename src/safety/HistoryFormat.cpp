#include "safety/HistoryFormat.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>

namespace brimlet {

namespace {

constexpr double secondsFrom1970To2001 = 978307200;

const Json* member(const Json& object, const char* key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::optional<std::int64_t> wholeNumber(const Json& value) {
    if (value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX)
        return std::nullopt;
    if (value.is_number_integer())
        return value.get<std::int64_t>();
    constexpr double limit = 9223372036854775808.0; // 2^63
    const double number = value.is_number() ? value.get<double>() : limit;
    if (number != std::floor(number) || number < -limit || number >= limit)
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

} // namespace

double historyDateNow() {
    const std::chrono::duration<double> since1970 = std::chrono::system_clock::now().time_since_epoch();
    return since1970.count() - secondsFrom1970To2001;
}

void addHistoryText(std::string& text, const HistoryEntry& entry) {
    const auto addText = [&](std::string_view key, std::string_view bytes) {
        text += key;
        addJsonString(text, bytes);
    };
    std::array<char, 32> date{};
    const auto* end = std::to_chars(date.data(), date.data() + date.size(), entry.date).ptr;
    const std::string_view digits(date.data(), static_cast<std::size_t>(end - date.data()));
    const bool isWhole = digits.find_first_of(".e") == std::string_view::npos;
    addText(R"({"id":)", entry.id.text());
    text.append(R"(,"date":)").append(digits).append(isWhole ? ".0" : "");
    addText(R"(,"originalPath":)", entry.originalPath);
    if (entry.trashPath)
        addText(R"(,"trashPath":)", *entry.trashPath);
    text.append(R"(,"size":)").append(std::to_string(entry.size));
    text.append(R"(,"restored":)").append(entry.restored ? "true" : "false");
    if (entry.identity)
        addText(R"(,"identity":)", *entry.identity);
    text += '}';
}

std::optional<HistoryEntry> historyFromJson(const Json& object) {
    if (!object.is_object())
        return std::nullopt;
    const Json* id = member(object, "id");
    const Json* date = member(object, "date");
    const Json* originalPath = member(object, "originalPath");
    const Json* trashPath = member(object, "trashPath");
    const Json* size = member(object, "size");
    const Json* restored = member(object, "restored");
    if (id == nullptr || date == nullptr || originalPath == nullptr || size == nullptr || restored == nullptr)
        return std::nullopt;
    if (!id->is_string() || !date->is_number() || !originalPath->is_string() || !restored->is_boolean())
        return std::nullopt;
    const auto uuid = Uuid::fromText(bytesOf(*id));
    const auto bytes = wholeNumber(*size);
    if (!uuid || !bytes)
        return std::nullopt;
    HistoryEntry entry{*uuid, date->get<double>(), bytesOf(*originalPath), {}, *bytes, restored->get<bool>()};
    if (trashPath != nullptr && !trashPath->is_null()) {
        if (!trashPath->is_string())
            return std::nullopt;
        entry.trashPath = bytesOf(*trashPath);
    }
    const Json* identity = member(object, "identity");
    if (identity != nullptr && identity->is_string())
        entry.identity = bytesOf(*identity);
    return entry;
}

std::string historyText(const std::vector<HistoryEntry>& entries) {
    std::string text = "[";
    for (const HistoryEntry& entry : entries) {
        text += text.size() > 1 ? "," : "";
        addHistoryText(text, entry);
    }
    return text + "]";
}

std::optional<std::vector<HistoryEntry>> historyFromText(std::string_view text) {
    const auto document = readJson(text);
    if (!document || !document->is_array())
        return std::nullopt;
    std::vector<HistoryEntry> entries;
    entries.reserve(document->size());
    for (const Json& object : *document) {
        auto entry = historyFromJson(object);
        if (!entry)
            return std::nullopt;
        entries.push_back(std::move(*entry));
    }
    return entries;
}

} // namespace brimlet
