// How every list is loaded that has to be searched for on the disk.
//
// 1. One search runs at a time. A start while one runs tells it to stop, and begins anew when it has: however
//    often a user asks, searches never pile up, and what is published was begun after the last asking.
// 2. What was deleted while the search ran is left out of what it found.
// 3. A cancelled search publishes nothing.
// Main thread. The owner destroys the BackgroundWork first.
#pragma once

#include "app/background/BackgroundWork.h"

#include <functional>
#include <stop_token>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace brimlet {

template <typename List>
class SearchedList {
public:
    using Paths = std::unordered_set<std::string>;

    /// Searches on a background thread. Once the token says stop, what it gives back is not looked at.
    using Search = std::function<List(const std::stop_token&)>;

    struct Owner {
        std::function<void(List)> publish;
        std::function<void()> loadingChanged;
        std::function<void(List&, const Paths& gone)> leaveOut;
    };

    SearchedList(BackgroundWork& work, Search search, Owner owner)
        : m_work(work)
        , m_search(std::move(search))
        , m_owner(std::move(owner)) {}

    bool isLoading() const { return m_isLoading; }

    /// then  called once the list is current, also where a later start has replaced this one; not after
    ///       `cancel`; may be empty
    void load(std::function<void()> then = {}) {
        if (then)
            m_then.push_back(std::move(then));
        if (std::exchange(m_isSearching, true)) {
            m_mustBeginAnew = true;
            m_stop.request_stop();
        } else {
            begin();
        }
        setLoading(true);
    }

    void cancel() {
        m_stop.request_stop();
        m_mustBeginAnew = false;
        m_then.clear();
        setLoading(false);
    }

    void deleted(const Paths& paths) {
        if (m_isSearching)
            m_gone.insert(paths.begin(), paths.end());
    }

    /// Says that what was deleted is back in its place.
    void restored(const Paths& paths) {
        for (const std::string& path : paths)
            m_gone.erase(path);
    }

private:
    void begin() {
        m_mustBeginAnew = false;
        m_gone.clear();
        m_stop = std::stop_source();
        m_work.run([search = m_search, token = m_stop.get_token()] { return search(token); },
                   [this](List found) { finish(std::move(found)); });
    }

    void finish(List found) {
        if (m_mustBeginAnew) {
            begin();
            return;
        }
        m_isSearching = false;
        if (!m_isLoading) // cancelled
            return;
        m_owner.leaveOut(found, m_gone);
        m_owner.publish(std::move(found));
        setLoading(false);
        for (const std::function<void()>& then : std::exchange(m_then, {}))
            then();
    }

    void setLoading(bool loading) {
        if (std::exchange(m_isLoading, loading) != loading)
            m_owner.loadingChanged();
    }

    BackgroundWork& m_work;
    Search m_search;
    Owner m_owner;
    bool m_isLoading = false;
    bool m_isSearching = false; ///< a search runs, though it may have been told to stop
    bool m_mustBeginAnew = false;
    std::stop_source m_stop;
    Paths m_gone; ///< since the running search began
    std::vector<std::function<void()>> m_then;
};

} // namespace brimlet
