#include "platform/PropertyList.h"

#include "platform/PropertyListGuard.h"

#include <plist/plist.h>
#include <utility>

namespace brimlet {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view binaryMark = "bplist00";

} // namespace

PropertyList::PropertyList(Root root)
    : m_root(std::move(root)) {}

std::optional<PropertyList> PropertyList::fromBytes(std::string_view bytes) {
    if (bytes.starts_with(byteOrderMark))
        bytes.remove_prefix(byteOrderMark.size());
    if (bytes.size() > maximumBytes)
        return std::nullopt;
    plist_t root = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
    if (bytes.starts_with(binaryMark)) {
        if (isHarmlessBinaryPropertyList(bytes))
            plist_from_bin(bytes.data(), length, &root);
    } else if (isHarmlessXmlPropertyList(bytes)) {
        plist_from_xml(bytes.data(), length, &root);
    }
    if (root == nullptr)
        return std::nullopt;
    return PropertyList(Root(root, plist_free));
}

std::optional<std::string> PropertyList::text(const std::string& key) const {
    if (plist_get_node_type(m_root.get()) != PLIST_DICT)
        return std::nullopt;
    const plist_t value = plist_dict_get_item(m_root.get(), key.c_str());
    if (value == nullptr || plist_get_node_type(value) != PLIST_STRING)
        return std::nullopt;
    std::uint64_t length = 0;
    const char* characters = plist_get_string_ptr(value, &length);
    if (characters == nullptr)
        return std::nullopt;
    return std::string(characters, length);
}

} // namespace brimlet
