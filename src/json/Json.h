// The one JSON codec. Text in JSON is Unicode, but names and paths are bytes: a byte that is not part of
// valid UTF-8 is written as a lone surrogate \udc80 … \udcff and read back as that byte.
//
// Every text goes in through jsonString and comes out through bytesOf; documents are written by writeJson and
// read by readJson only. Values in, values out; callable from any thread.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace brimlet {

/// Keys stay in the order they were set.
using Json = nlohmann::ordered_json;

/// A JSON string that holds these bytes, whatever they are.
Json jsonString(std::string_view bytes);

/// The bytes of a string value that came from jsonString or readJson. The value must be a string.
std::string bytesOf(const Json& string);

enum class JsonLayout { compact, indented };

/// The document as UTF-8 text without a final line feed.
std::string writeJson(const Json& document, JsonLayout layout = JsonLayout::compact);

/// Adds a string of these bytes to a text as writeJson would, for lists so long that they are written without
/// a document.
void addJsonString(std::string& text, std::string_view bytes);

/// Empty where the text is not one JSON document.
std::optional<Json> readJson(std::string_view text);

} // namespace brimlet
