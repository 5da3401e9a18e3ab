// What tells an entry of a disk from every other one, also after its path has come to name another.
#pragma once

#include <cstdint>
#include <string>

namespace brimlet {

/// One file, folder or link. Taken from the entry itself, links not followed. Device, inode and birth are
/// zero where the file system doesn't tell them, or not lastingly.
struct EntryIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint32_t type = 0; ///< the type bits of its mode
    /// When it was made, since 1970. An inode that is used again is told by it.
    std::int64_t bornSeconds = 0;
    std::uint32_t bornNanoseconds = 0;
    bool operator==(const EntryIdentity&) const = default;

    /// Whether `other` is this very entry, by what this identity knows of it.
    bool isOf(const EntryIdentity& other) const {
        const bool knowsBirth = bornSeconds != 0 || bornNanoseconds != 0;
        return type == other.type && (device == 0 || device == other.device) &&
               (inode == 0 || inode == other.inode) &&
               (!knowsBirth ||
                (bornSeconds == other.bornSeconds && bornNanoseconds == other.bornNanoseconds));
    }
};

/// An entry together with the folder that holds it.
struct PlacedIdentity {
    EntryIdentity entry;
    EntryIdentity folder;
    bool operator==(const PlacedIdentity&) const = default;
};

/// Tells a file from every other one of its disk, through renames and restarts. Compared, never parsed.
using FileIdentity = std::string;

} // namespace brimlet
