// Turns one directory into a ScanResult.
//
// The result is exactly that of a single-threaded depth-first walk in directory-reading order that follows no
// symbolic link and stays on the root's device; underneath, directories are read in parallel through
// descriptors. One Scanner serves one scan. It holds no results; it exists so that the scan can be cancelled
// from elsewhere.
#pragma once

#include "core/FolderRules.h"
#include "core/ScanResult.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

namespace brimlet {

class Scanner {
public:
    /// rules   must outlive the scanner
    explicit Scanner(const FolderRules& rules)
        : m_rules(rules) {}

    /// Files and bytes counted so far and the normalised path being read.
    using Progress =
        std::function<void(std::int64_t files, std::int64_t bytes, std::string_view currentPath)>;

    /// Walks the folder and blocks until the walk has ended; all threads are joined by then.
    /// rootPath  absolute; kept unchanged in the result
    /// excluded  normalised absolute paths of directories that get no node and no bytes; the root is never
    /// excluded progress  called on a walking thread, never twice at once, at most about twelve times a
    /// second, and not after
    ///           the return; must not block; may be empty
    /// returns   null when cancelled, or when the root is no directory that can be examined
    std::shared_ptr<ScanResult> scan(const std::string& rootPath,
                                     const std::unordered_set<std::string>& excluded,
                                     const Progress& progress);

    /// Ends the scan at the next directory of each thread. Any thread, any number of times, also before
    /// `scan`.
    void cancel() { m_cancelled = true; }
    bool isCancelled() const { return m_cancelled; }

private:
    const FolderRules& m_rules;
    std::atomic<bool> m_cancelled = false;
};

} // namespace brimlet
