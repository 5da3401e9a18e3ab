#include "support/HeldWalks.h"

#include <chrono>
#include <stdexcept>

namespace brimlet::test {

namespace {
constexpr std::chrono::seconds patience{20};
}

ScanWalk HeldWalks::walk() {
    return [this](Scanner& scanner, const std::string& rootPath,
                  const std::unordered_set<std::string>& excluded, const Scanner::Progress& progress) {
        std::unique_lock lock(m_mutex);
        Walk& walk = m_walks.emplace_back(Walk{&scanner, rootPath, excluded, progress, nullptr, false});
        m_changed.notify_all();
        m_changed.wait(lock, [&] { return walk.released || m_open; });
        return walk.result;
    };
}

HeldWalks::Walk& HeldWalks::begun(std::size_t index) {
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait_for(lock, patience, [&] { return m_walks.size() > index; }))
        throw std::runtime_error("the scan did not begin");
    return m_walks[index];
}

void HeldWalks::finish(std::size_t index, std::shared_ptr<ScanResult> result) {
    Walk& walk = begun(index);
    const std::scoped_lock lock(m_mutex);
    walk.result = std::move(result);
    walk.released = true;
    m_changed.notify_all();
}

void HeldWalks::releaseAll() {
    const std::scoped_lock lock(m_mutex);
    m_open = true;
    m_changed.notify_all();
}

std::size_t HeldWalks::count() {
    const std::scoped_lock lock(m_mutex);
    return m_walks.size();
}

} // namespace brimlet::test
