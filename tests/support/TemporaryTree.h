// A folder of its own for one test, gone with the object. All paths given to it are relative to that folder.
// A step that fails throws std::system_error, so that a test never goes on with half a tree.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace brimlet::test {

class TemporaryTree {
public:
    /// An empty folder below the system's temporary folder, with links in its path resolved.
    TemporaryTree();
    ~TemporaryTree();
    TemporaryTree(const TemporaryTree&) = delete;
    TemporaryTree& operator=(const TemporaryTree&) = delete;

    const std::string& root() const { return m_root; }

    /// The absolute path of an entry.
    std::string path(std::string_view relative) const;

    /// Makes a directory with all its parents. Returns its absolute path.
    std::string directory(std::string_view relative) const;

    /// Makes a file of `bytes` written bytes, so that it occupies at least as many. Parents are made as
    /// needed.
    std::string file(std::string_view relative, std::size_t bytes = 0) const;

    /// Makes a file with this content.
    std::string fileWithText(std::string_view relative, std::string_view text) const;

    /// Makes a file that is `logicalBytes` long and occupies nothing.
    std::string sparseFile(std::string_view relative, std::int64_t logicalBytes) const;

    std::string symbolicLink(std::string_view relative, std::string_view target) const;
    std::string hardLink(std::string_view relative, std::string_view existing) const;

    /// Sets access and modification time, in seconds since 1970; links are not followed.
    void setTimes(std::string_view relative, double accessed, double modified) const;

    bool exists(std::string_view relative) const;

private:
    std::string m_root;
};

} // namespace brimlet::test
