#include "safety/JunkRule.h"

#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

namespace {

char lowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool isLowerCaseOf(std::string_view lower, std::string_view text) {
    return std::ranges::equal(lower, text, {}, {}, lowerAscii);
}

} // namespace

std::string_view caseName(Removal removal) {
    return removal == Removal::permanent ? "permanent" : "trash";
}

std::string JunkRule::resolvedBase(std::string_view homeFolder) const {
    if (base.starts_with('/'))
        return std::string(base);
    std::string resolved(homeFolder);
    if (!resolved.ends_with('/'))
        resolved += '/';
    return resolved += base;
}

bool JunkRule::excludes(std::string_view childName) const {
    return std::ranges::find(excludedNames, childName) != excludedNames.end();
}

bool JunkRule::admitsExtensionOf(std::string_view childName) const {
    if (!extensions)
        return true;
    const std::string_view extension = pathExtension(childName);
    return std::ranges::any_of(*extensions,
                               [&](std::string_view lower) { return isLowerCaseOf(lower, extension); });
}

} // namespace brimlet
