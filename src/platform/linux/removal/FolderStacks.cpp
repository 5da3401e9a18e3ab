#include "platform/linux/removal/FolderStacks.h"

#include <iterator>
#include <utility>

namespace brimlet {

namespace {
constexpr std::size_t mostOpen = 32; // a hand; far above the depth of ordinary trees
}

std::size_t FolderStacks::add(std::size_t hand, const FolderPointer& above,
                              std::vector<FolderToEnter> folders) {
    if (folders.empty())
        return 0;
    const std::lock_guard lock(m_mutex);
    above->unfinished += folders.size();
    std::move(folders.begin(), folders.end(), std::back_inserter(above->folders));
    m_stacks[hand].push_back(above);
    if (m_waiting > 0 && above->folders.size() > 1) // one is for the hand itself
        m_changed.notify_all();
    return above->folders.size();
}

FolderJob FolderStacks::jobIn(const FolderPointer& folder) {
    FolderJob job{folder, folder->opened, std::move(folder->folders.back())};
    folder->folders.pop_back();
    return job;
}

std::optional<FolderJob> FolderStacks::takeOwn(std::vector<FolderPointer>& stack) {
    while (!stack.empty() && stack.back()->folders.empty())
        stack.pop_back();
    if (stack.empty() || !stack.back()->opened)
        return std::nullopt;
    return jobIn(stack.back());
}

std::optional<FolderJob> FolderStacks::takeNearTop(const std::vector<FolderPointer>& stack) {
    for (const FolderPointer& folder : stack) {
        if (!folder->folders.empty() && folder->opened)
            return jobIn(folder);
    }
    return std::nullopt;
}

std::optional<FolderJob> FolderStacks::take(std::size_t hand) {
    std::unique_lock lock(m_mutex);
    while (!m_isOver) {
        if (auto job = takeOwn(m_stacks[hand]))
            return job;
        for (const auto& stack : m_stacks) {
            if (auto job = takeNearTop(stack))
                return job;
        }
        ++m_waiting;
        m_changed.wait(lock);
        --m_waiting;
    }
    return std::nullopt;
}

bool FolderStacks::release(EmptiedFolder& folder) {
    const std::lock_guard lock(m_mutex);
    return --folder.unfinished == 0;
}

void FolderStacks::lose(EmptiedFolder& folder) {
    const std::lock_guard lock(m_mutex);
    folder.isLost = true;
}

void FolderStacks::closeFarAbove(const EmptiedFolder& folder) {
    if (folder.depth <= mostOpen)
        return;
    EmptiedFolder* far = folder.above.get();
    for (std::size_t i = 1; i < mostOpen; ++i)
        far = far->above.get();
    const std::lock_guard lock(m_mutex);
    far->opened.reset();
}

std::shared_ptr<const Descriptor> FolderStacks::opened(const EmptiedFolder& folder) {
    const std::lock_guard lock(m_mutex);
    return folder.opened;
}

void FolderStacks::reopen(EmptiedFolder& folder, std::shared_ptr<const Descriptor> opened) {
    const std::lock_guard lock(m_mutex);
    folder.opened = std::move(opened);
    if (m_waiting > 0 && !folder.folders.empty())
        m_changed.notify_all();
}

void FolderStacks::abandon(EmptiedFolder& folder) {
    const std::lock_guard lock(m_mutex);
    folder.isLost = true;
    folder.unfinished -= folder.folders.size();
    folder.folders.clear();
}

void FolderStacks::end() {
    const std::lock_guard lock(m_mutex);
    m_isOver = true;
    m_changed.notify_all();
}

} // namespace brimlet
