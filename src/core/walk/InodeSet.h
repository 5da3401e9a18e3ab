// A set of keys of hard-linked files, compact enough for a disk that holds millions of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brimlet {

class InodeSet {
public:
    /// Returns whether the key is new.
    bool insert(std::uint64_t key) {
        if (key == 0) {
            const bool isNew = !m_hasZero;
            m_hasZero = true;
            return isNew;
        }
        if (2 * m_count >= m_slots.size())
            grow();
        return place(key);
    }

private:
    bool place(std::uint64_t key) {
        const std::size_t mask = m_slots.size() - 1;
        std::size_t slot = (key * 0x9E3779B97F4A7C15U >> 16) & mask;
        while (m_slots[slot] != 0) {
            if (m_slots[slot] == key)
                return false;
            slot = (slot + 1) & mask;
        }
        m_slots[slot] = key;
        ++m_count;
        return true;
    }

    void grow() {
        std::vector<std::uint64_t> old(m_slots.empty() ? 64 : 2 * m_slots.size());
        old.swap(m_slots);
        m_count = 0;
        for (const std::uint64_t key : old)
            if (key != 0)
                place(key);
    }

    std::vector<std::uint64_t> m_slots; ///< a power of two, at most half of them used; 0 is empty
    std::size_t m_count = 0;
    bool m_hasZero = false;
};

} // namespace brimlet
