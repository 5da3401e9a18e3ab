#include "support/PropertyLists.h"

#include <plist/plist.h>

namespace brimlet::test {

namespace {

void appendNumber(std::string& bytes, std::uint64_t value, int width) {
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
}

} // namespace

std::string xmlInfoList(std::string_view identifier) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\"><dict><key>CFBundleName</key><string>A &amp; B</string>\n"
           "<key>CFBundleIdentifier</key><string>" +
           std::string(identifier) +
           "</string><key>LSMinimumSystemVersion</key><real>13.0</real></dict></plist>\n";
}

std::string binaryInfoList(std::string_view identifier) {
    const std::string text = xmlInfoList(identifier);
    plist_t root = nullptr;
    plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &root);
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(root, &bytes, &length);
    plist_free(root);
    std::string list(bytes, length);
    plist_to_bin_free(bytes);
    return list;
}

std::string binaryListOf(const std::vector<std::string>& objects, std::uint64_t root) {
    constexpr int offsetWidth = 4;
    std::string bytes = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        appendNumber(offsets, bytes.size(), offsetWidth);
        bytes += object;
    }
    const std::uint64_t offsetTable = bytes.size();
    bytes += offsets + std::string(6, '\0');
    appendNumber(bytes, offsetWidth, 1);
    appendNumber(bytes, 1, 1);
    appendNumber(bytes, objects.size(), 8);
    appendNumber(bytes, root, 8);
    appendNumber(bytes, offsetTable, 8);
    return bytes;
}

std::string binaryArray(const std::vector<unsigned char>& references) {
    std::string object = "\xAF\x10";
    object += static_cast<char>(references.size());
    object.append(references.begin(), references.end());
    return object;
}

} // namespace brimlet::test
