// Where disks are mounted.
#pragma once

#include <cstdio>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

/// The mount points in the text of /proc/thread-self/mountinfo, unescaped.
std::vector<std::string> mountPointsFromText(std::string_view text);

/// The mount points of now. The system's list is read again only when it says that it has changed. Callable
/// from any thread.
class MountTable {
public:
    /// Whether something is mounted below a folder, given by its path without links. False where the system
    /// doesn't tell.
    bool holdsBelow(std::string_view folder);

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    bool hasChanged();
    void read();

    std::mutex m_mutex;
    std::unique_ptr<std::FILE, Close> m_file; ///< kept open: it is what the system tells of changes through
    std::vector<std::string> m_points;        ///< sorted
};

/// Whether a folder is where something is mounted, for kernels whose status doesn't tell.
/// name   of the folder in `folder`, or empty for `folder` itself
bool isMountPoint(int folder, const char* name);

} // namespace brimlet
