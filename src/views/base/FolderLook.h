// Whether an item is drawn as a folder.
#pragma once

#include "core/FileKind.h"
#include "platform/EntryIdentity.h"

#include <optional>
#include <string_view>
#include <sys/stat.h>

namespace brimlet {

/// By what it was as it was reviewed; where that isn't known by its name, and most junk is folders.
inline bool looksLikeFolder(const std::optional<PlacedIdentity>& identity, std::string_view name) {
    return identity ? S_ISDIR(identity->entry.type) : fileKindForName(name) == FileKind::other;
}

} // namespace brimlet
