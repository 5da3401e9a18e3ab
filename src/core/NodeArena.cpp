#include "core/NodeArena.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <new>
#include <type_traits>

namespace brimlet {

static_assert(std::is_trivially_destructible_v<FileNode>,
              "the arena frees memory without running destructors");

FileNode* NodeArena::newNode(std::string_view name) {
    auto* text = static_cast<char*>(allocate(name.size(), 1));
    std::copy(name.begin(), name.end(), text);
    auto* node = new (allocate(sizeof(FileNode), alignof(FileNode))) FileNode;
    node->name = {text, name.size()};
    return node;
}

std::span<FileNode*> NodeArena::newChildren(std::size_t count) {
    // NOLINTNEXTLINE(bugprone-sizeof-expression): a list of pointers is what is wanted
    auto** first = static_cast<FileNode**>(allocate(count * sizeof(FileNode*), alignof(FileNode*)));
    std::uninitialized_fill_n(first, count, nullptr);
    return {first, count};
}

void NodeArena::adopt(NodeArena&& other) {
    std::move(other.m_blocks.begin(), other.m_blocks.end(), std::back_inserter(m_blocks));
    other = NodeArena();
}

void* NodeArena::allocate(std::size_t bytes, std::size_t alignment) {
    void* place = m_next;
    if (place == nullptr || std::align(alignment, bytes, place, m_left) == nullptr) {
        const std::size_t capacity = std::max(blockBytes, bytes);
        m_blocks.push_back(std::make_unique_for_overwrite<std::byte[]>(capacity));
        place = m_blocks.back().get();
        m_left = capacity;
    }
    m_next = static_cast<std::byte*>(place) + bytes;
    m_left -= bytes;
    return place;
}

} // namespace brimlet
