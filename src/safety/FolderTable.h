// A table of folders that answers at once which of its rows a path lies in.
//
// The folders stand as a tree of their components, so a look-up costs one step for each component that path
// and table have in common, however long the table. Comparison is of bytes: a doubled or trailing slash makes
// an empty component like any other. Filled once, then only read, by any number of threads.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

class FolderTable {
public:
    /// Adds a row; rows are numbered from 0 in the order of adding.
    void add(std::string_view folder);

    /// Whether a row's folder is exactly this path.
    bool contains(std::string_view path) const;

    /// The first row whose folder is this path or lies above it.
    std::optional<std::size_t> firstCovering(std::string_view path) const;

    /// The first row whose folder is this path or lies below it. A slash at the path's end changes nothing.
    std::optional<std::size_t> firstWithin(std::string_view path) const;

    /// The rows whose folders lie above this path, in table order.
    std::vector<std::size_t> rowsAbove(std::string_view path) const;

private:
    struct Folder {
        std::string name;
        std::vector<Folder> children;
        std::vector<std::size_t> rows;

        const Folder* child(std::string_view childName) const;
        std::optional<std::size_t> firstRow() const; ///< of this folder and all below it
    };
    enum class Relation { above, same };

    /// Calls visit(folder, relation) for each folder of the tree on the way down to `path`.
    template <typename Visit>
    void descend(std::string_view path, const Visit& visit) const;

    Folder m_root; ///< without a name; its children are first components, empty for absolute paths
    std::size_t m_rowCount = 0;
};

} // namespace brimlet
