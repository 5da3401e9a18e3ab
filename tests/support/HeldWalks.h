// Scans that wait until the test lets them go, so that a late result comes exactly when the test wants it.
#pragma once

#include "app/state/AppServices.h"

#include <condition_variable>
#include <deque>
#include <mutex>

namespace brimlet::test {

class HeldWalks {
public:
    struct Walk {
        Scanner* scanner = nullptr;
        std::string rootPath;
        std::unordered_set<std::string> excluded;
        Scanner::Progress progress;
        std::shared_ptr<ScanResult> result;
        bool released = false;
    };

    /// What AppServices is given.
    ScanWalk walk();

    /// The n-th walk, from 0, once it has begun.
    Walk& begun(std::size_t index);

    /// Ends the n-th walk with a result, or without one.
    void finish(std::size_t index, std::shared_ptr<ScanResult> result);

    /// Ends all walks, also those to come, without a result.
    void releaseAll();

    std::size_t count();

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Walk> m_walks;
    bool m_open = false;
};

} // namespace brimlet::test
