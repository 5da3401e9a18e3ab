#include "platform/linux/removal/FolderLadder.h"

#include <cerrno>
#include <fcntl.h>

namespace brimlet {

namespace {
constexpr std::size_t mostOpen = 32; // far below any descriptor limit, far above the depth of ordinary trees
}

void FolderLadder::descend(Descriptor folder, const FileStatus& status) {
    m_rungs.push_back({std::move(folder), status});
    if (m_rungs.size() > mostOpen)
        m_rungs[m_rungs.size() - 1 - mostOpen].folder.close();
}

int FolderLadder::ascend(Descriptor* receiver) {
    Descriptor own;
    Descriptor& left = receiver != nullptr ? *receiver : own;
    left = std::move(m_rungs.back().folder);
    m_rungs.pop_back();
    if (m_rungs.empty() || m_rungs.back().folder.isOpen())
        return 0;
    Rung& above = m_rungs.back();
    int result = m_calls.open(left.number(), "..", O_RDONLY | O_DIRECTORY | O_NONBLOCK);
    if (result >= 0) {
        Descriptor reopened(m_calls, result);
        FileStatus status;
        result = m_calls.status(reopened.number(), "", status);
        if (result == 0 && !status.isSameFile(above.status))
            result = -ENOENT;
        above.folder = std::move(reopened);
    }
    if (result < 0)
        m_rungs.clear();
    return result;
}

} // namespace brimlet
