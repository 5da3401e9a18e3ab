// Which items of the junk list the user has chosen, by path, with the state of each rule's own box.
// Owned and used by one thread.
#pragma once

#include "junk/JunkFinder.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// The state of a box that stands for many.
enum class TickState : std::uint8_t { off, partly, on };

class JunkSelection {
public:
    /// Takes over a new list: what it doesn't hold is no longer chosen. The findings given to the other
    /// calls are those of this list, told by their position.
    void adopt(std::span<const JunkFinding> junk);

    bool contains(const JunkItem& item) const { return m_paths.contains(item.path); }

    /// A finding without items is off.
    TickState state(std::size_t position, const JunkFinding& finding) const;

    void toggle(std::size_t position, const JunkItem& item);

    /// Chooses all items of a finding; lets go of all when all are chosen.
    void toggleAll(std::size_t position, const JunkFinding& finding);

    void clear();

    std::size_t count() const { return m_paths.size(); }
    std::int64_t size() const { return m_size; } ///< bytes of the chosen items

private:
    void add(std::size_t position, const JunkItem& item);
    void remove(std::size_t position, const JunkItem& item);

    std::unordered_set<std::string> m_paths;
    std::vector<std::size_t> m_chosenOf; // by position of the finding
    std::int64_t m_size = 0;
};

} // namespace brimlet
