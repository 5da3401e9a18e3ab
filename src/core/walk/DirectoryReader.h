// Reading directories through descriptors: the part of a walk that depends on the operating system.
// Nothing here follows a symbolic link below the path that a walk starts from, and nothing but directories is
// ever opened.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace brimlet {

/// What a walk needs of `stat`.
struct EntryStatus {
    enum class Type : std::uint8_t { directory, regular, other };

    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t links = 0;
    std::int64_t allocatedBytes = 0;
    std::int64_t logicalBytes = 0;
    std::int64_t modified = 0; ///< whole seconds since 1970
    std::int64_t accessed = 0; ///< likewise
    Type type = Type::other;

    bool isDirectory() const { return type == Type::directory; }
    bool isSharedFile() const { return type == Type::regular && links >= 2; }

    /// What hard links to one file have in common.
    std::uint64_t linkKey() const { return inode ^ (device << 48); }
};

/// The status of the entry itself where it is a link; empty where it can't be examined.
std::optional<EntryStatus> statusOfPath(const char* path);

/// An open directory; closes itself.
class DirectoryDescriptor {
public:
    DirectoryDescriptor() = default;
    explicit DirectoryDescriptor(int descriptor)
        : m_descriptor(descriptor) {}
    ~DirectoryDescriptor() { reset(); }
    DirectoryDescriptor(DirectoryDescriptor&& other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    DirectoryDescriptor& operator=(DirectoryDescriptor&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }

    bool isOpen() const { return m_descriptor >= 0; }
    int value() const { return m_descriptor; }
    void reset();

private:
    int m_descriptor = -1;
};

enum class OpenOutcome { opened, outOfDescriptors, failed };

struct OpenedDirectory {
    OpenOutcome outcome = OpenOutcome::failed;
    DirectoryDescriptor descriptor; ///< open exactly where `outcome` is `opened`
};

/// What a directory is opened for.
enum class OpenFor { listing, passing };

/// Opens a directory by the path that a walk starts from.
OpenedDirectory openDirectory(const char* path, OpenFor purpose);

/// Opens the directory `name` in `parent`. Whatever else stands at that name by now is not opened.
OpenedDirectory openDirectory(const DirectoryDescriptor& parent, const char* name, OpenFor purpose);

/// A second descriptor of the same directory, for `passing`.
OpenedDirectory duplicate(const DirectoryDescriptor& directory);

/// Whether the open directory is the one that had this device and inode.
bool isSameDirectory(const DirectoryDescriptor& directory, std::uint64_t device, std::uint64_t inode);

/// How many descriptors this process may have open.
std::size_t descriptorLimit();

/// One entry of a directory. `name` is terminated by a zero byte.
struct DirectoryEntry {
    std::string_view name;
    std::optional<EntryStatus> status; ///< empty where the entry can't be examined
};

/// Lists directories one after another; each thread has its own. Entries come in the order of the file
/// system, without "." and "..".
class DirectoryReader {
public:
    DirectoryReader();

    /// Begins a directory; it must stay open until `next` has returned null or another one is begun.
    void begin(const DirectoryDescriptor& directory);

    /// The next entry, valid until the following call, or null at the end. An error ends the directory.
    const DirectoryEntry* next();

private:
    bool fill();

    static constexpr std::size_t bufferBytes = std::size_t{64} * 1024;
    std::unique_ptr<std::byte[]> m_buffer;
    std::size_t m_position = 0;
    std::size_t m_end = 0;
    int m_descriptor = -1;
    DirectoryEntry m_entry;
};

} // namespace brimlet
