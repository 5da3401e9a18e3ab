#include "app/background/TreeUpdates.h"

#include <algorithm>
#include <span>
#include <utility>

namespace brimlet {

namespace {

/// So many are marked in about a millisecond.
constexpr std::size_t pieceSize = 1'000;

} // namespace

void TreeUpdates::markDeleted(std::shared_ptr<ScanResult> scan, SharedPaths paths,
                              std::function<void()> then) {
    add({&ScanResult::markNodesDeleted, std::move(scan), std::move(paths), std::move(then)});
}

void TreeUpdates::markRestored(std::shared_ptr<ScanResult> scan, SharedPaths paths,
                               std::function<void()> then) {
    add({&ScanResult::markNodesRestored, std::move(scan), std::move(paths), std::move(then)});
}

void TreeUpdates::add(Update update) {
    m_updates.push_back(std::move(update));
    if (m_updates.size() == 1)
        begin();
}

void TreeUpdates::begin() {
    const Update& update = m_updates.front();
    m_work.run(
        [scan = std::shared_ptr<const ScanResult>(update.scan), paths = update.paths] {
            return scan ? scan->nodesAtNodePaths(*paths) : std::vector<FileNode*>();
        },
        [this](std::vector<FileNode*> nodes) {
            m_nodes = std::move(nodes);
            markFrom(0);
        });
}

void TreeUpdates::markFrom(std::size_t first) {
    const Update& update = m_updates.front();
    const std::size_t count = std::min(pieceSize, m_nodes.size() - first);
    if (count > 0)
        (*update.scan.*update.mark)(std::span(m_nodes).subspan(first, count));
    if (first + count < m_nodes.size()) {
        m_work.handBack([this, next = first + count] { markFrom(next); });
        return;
    }
    const std::function<void()> then = update.then;
    m_updates.pop_front();
    if (!m_updates.empty())
        begin();
    then();
}

} // namespace brimlet
