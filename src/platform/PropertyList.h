// Property lists, XML and binary, from files that anyone may have written.
//
// Whatever stands in them, reading ends soon and does no harm: what is damaged, or larger or more deeply
// nested than a list of this kind ever is, is no property list here.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace brimlet {

/// A property list read into memory. Immutable; one thread at a time.
class PropertyList {
public:
    /// Longer ones are not read.
    static constexpr std::size_t maximumBytes = std::size_t{1024} * 1024;

    /// Empty where the bytes are no harmless property list.
    static std::optional<PropertyList> fromBytes(std::string_view bytes);

    /// The string that stands under a key of the list's dictionary, in UTF-8; empty where there is none.
    std::optional<std::string> text(const std::string& key) const;

private:
    using Root = std::unique_ptr<void, void (*)(void*)>;

    explicit PropertyList(Root root);

    Root m_root;
};

} // namespace brimlet
