#include "platform/linux/removal/FolderListing.h"

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <string_view>

namespace brimlet {

namespace {
constexpr std::size_t bufferBytes = std::size_t{64} * 1024; // some 2,000 names a call
}

FolderListing::FolderListing(FileSystemCalls& calls)
    : m_calls(calls)
    , m_buffer(new char[bufferBytes]) {}

int FolderListing::readOn(int folder) {
    m_batch.clear();
    while (m_batch.empty()) {
        const ssize_t bytes = m_calls.listFolder(folder, m_buffer.get(), bufferBytes);
        if (bytes <= 0)
            return static_cast<int>(bytes);
        for (ssize_t at = 0; at < bytes;) {
            const char* record = m_buffer.get() + at;
            dirent64 head{};
            std::memcpy(&head, record, offsetof(dirent64, d_name));
            const char* name = record + offsetof(dirent64, d_name);
            at += head.d_reclen;
            if (std::string_view(name) != "." && std::string_view(name) != "..")
                m_batch.push_back({name, head.d_ino, head.d_type});
        }
    }
    std::sort(m_batch.begin(), m_batch.end(),
              [](const ListedEntry& a, const ListedEntry& b) { return a.inode < b.inode; });
    return static_cast<int>(m_batch.size());
}

} // namespace brimlet
