// The file that holds the history, and what several processes agree on in it.
//
// Stateless but for its store; callable from any thread; blocks on the disk.
#pragma once

#include "platform/RecordStore.h"
#include "safety/DeletionRecords.h"
#include "safety/HistoryMerge.h"

#include <optional>
#include <string>
#include <vector>

namespace brimlet {

/// What one process knows of the history, as it is to be written.
struct HistorySnapshot {
    std::vector<HistoryEntry> entries; ///< newest first
    UuidSet base;                      ///< the identifiers in the file when it was last read or written
    UuidSet restored;                  ///< what this process has put back
};

/// Marks as restored what was put back.
void applyRestored(std::vector<HistoryEntry>& entries, const UuidSet& restored);

class HistoryFile {
public:
    enum class State {
        missing,
        whole,
        damaged, ///< doesn't decode, or is no file
        unknown, ///< can't be looked at now
    };
    struct Content {
        State state = State::missing;
        std::vector<HistoryEntry> entries;
    };

    /// store   must outlive the file
    explicit HistoryFile(RecordStore& store)
        : m_store(store) {}

    std::string path() const;

    Content read();

    /// What the file holds, with nobody writing meanwhile.
    Content readLocked();

    /// Writes a snapshot, merged with what other processes wrote, and gives what the file holds then. Empty
    /// when that failed, and the file is as it was. A damaged file is kept beside the new one.
    std::optional<std::vector<HistoryEntry>> write(const HistorySnapshot& snapshot);

private:
    bool keepDamagedFile();

    RecordStore& m_store;
    std::size_t m_writtenHash = 0; ///< of the text that was written last
    std::vector<HistoryEntry> m_written;
};

} // namespace brimlet
