#include "junk/JunkSelection.h"

#include <utility>

namespace brimlet {

void JunkSelection::adopt(std::span<const JunkFinding> junk) {
    const std::unordered_set<std::string> before = std::exchange(m_paths, {});
    m_chosenOf.assign(junk.size(), 0);
    m_size = 0;
    if (before.empty())
        return;
    for (std::size_t position = 0; position < junk.size(); ++position) {
        for (const JunkItem& item : junk[position].items) {
            if (before.contains(item.path))
                add(position, item);
        }
    }
}

TickState JunkSelection::state(std::size_t position, const JunkFinding& finding) const {
    const std::size_t chosen = m_chosenOf[position];
    if (chosen == 0)
        return TickState::off;
    return chosen == finding.items.size() ? TickState::on : TickState::partly;
}

void JunkSelection::toggle(std::size_t position, const JunkItem& item) {
    if (contains(item))
        remove(position, item);
    else
        add(position, item);
}

void JunkSelection::toggleAll(std::size_t position, const JunkFinding& finding) {
    const bool allChosen = state(position, finding) == TickState::on;
    for (const JunkItem& item : finding.items) {
        if (allChosen)
            remove(position, item);
        else
            add(position, item);
    }
}

void JunkSelection::clear() {
    m_paths.clear();
    m_chosenOf.assign(m_chosenOf.size(), 0);
    m_size = 0;
}

void JunkSelection::add(std::size_t position, const JunkItem& item) {
    if (!m_paths.insert(item.path).second)
        return;
    ++m_chosenOf[position];
    m_size += item.size;
}

void JunkSelection::remove(std::size_t position, const JunkItem& item) {
    if (m_paths.erase(item.path) == 0)
        return;
    --m_chosenOf[position];
    m_size -= item.size;
}

} // namespace brimlet
