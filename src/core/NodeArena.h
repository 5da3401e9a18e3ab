// Memory of one scanned tree: nodes, child lists and names, given back all at once.
// One thread at a time may allocate; arenas filled by different threads can be joined.
#pragma once

#include "core/FileNode.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace brimlet {

class NodeArena {
public:
    NodeArena() = default;
    NodeArena(NodeArena&&) noexcept = default;
    NodeArena& operator=(NodeArena&&) noexcept = default;

    /// A node with default fields; its name is copied into the arena.
    FileNode* newNode(std::string_view name);

    /// Room for `count` children, all null.
    std::span<FileNode*> newChildren(std::size_t count);

    /// Takes over the memory of `other`; its nodes keep their addresses.
    void adopt(NodeArena&& other);

private:
    void* allocate(std::size_t bytes, std::size_t alignment);

    static constexpr std::size_t blockBytes = std::size_t{64} * 1024;
    std::vector<std::unique_ptr<std::byte[]>> m_blocks;
    std::byte* m_next = nullptr;
    std::size_t m_left = 0;
};

} // namespace brimlet
