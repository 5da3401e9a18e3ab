#include "app/background/TreeUpdates.h"

#include <algorithm>
#include <span>
#include <utility>

namespace brimlet {

namespace {

/// Few enough for a small part of a slice.
constexpr std::size_t pieceSize = 100;

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
        [this](std::vector<FileNode*> nodes) { markAll(std::move(nodes)); });
}

void TreeUpdates::markAll(std::vector<FileNode*> nodes) {
    const auto all = std::make_shared<const std::vector<FileNode*>>(std::move(nodes));
    m_marking.run(
        [this, all, next = std::size_t{0}]() mutable {
            const Update& update = m_updates.front();
            const std::size_t count = std::min(pieceSize, all->size() - next);
            if (count > 0)
                (*update.scan.*update.mark)(std::span(*all).subspan(next, count));
            next += count;
            return next < all->size();
        },
        [this] { finishFirst(); });
}

void TreeUpdates::finishFirst() {
    const std::function<void()> then = m_updates.front().then;
    m_updates.pop_front();
    if (!m_updates.empty())
        begin();
    then();
}

} // namespace brimlet
