// bare-walk FOLDER [THREADS]: what the kernel's own work costs. Lists every folder and examines every entry
// with several threads, adds up blocks and keeps nothing. The floor that a scan is measured against.

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

class BareWalk {
public:
    explicit BareWalk(std::string root) { m_waiting.push_back(std::move(root)); }

    void run(unsigned threads) {
        std::vector<std::thread> pool;
        for (unsigned i = 0; i < threads; ++i)
            pool.emplace_back([this] { work(); });
        for (std::thread& thread : pool)
            thread.join();
    }

    std::int64_t bytes() const { return m_bytes; }
    std::int64_t entries() const { return m_entries; }

private:
    void work() {
        constexpr std::size_t bufferBytes = std::size_t{64} * 1024;
        const auto buffer = std::make_unique<char[]>(bufferBytes);
        std::vector<std::string> met;
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return !m_waiting.empty() || m_busy == 0; });
            if (m_waiting.empty())
                return;
            const std::string folder = std::move(m_waiting.back());
            m_waiting.pop_back();
            ++m_busy;
            lock.unlock();
            list(folder, buffer.get(), bufferBytes, met);
            lock.lock();
            --m_busy;
            for (std::string& path : met)
                m_waiting.push_back(std::move(path));
            if (met.size() > 1 || m_busy == 0)
                m_changed.notify_all();
            met.clear();
        }
    }

    void list(const std::string& folder, char* buffer, std::size_t size, std::vector<std::string>& met) {
        const int directory = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (directory < 0)
            return;
        std::int64_t bytes = 0;
        std::int64_t entries = 0;
        for (ssize_t read = 0; (read = getdents64(directory, buffer, size)) > 0;) {
            for (ssize_t position = 0; position < read;) {
                const auto* entry = reinterpret_cast<const dirent64*>(buffer + position);
                position += entry->d_reclen;
                struct stat status {};
                if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0 ||
                    fstatat(directory, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
                    continue;
                bytes += status.st_blocks * 512;
                ++entries;
                if (S_ISDIR(status.st_mode))
                    met.push_back(folder + "/" + entry->d_name);
            }
        }
        close(directory);
        m_bytes += bytes;
        m_entries += entries;
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_waiting;
    int m_busy = 0;
    std::atomic<std::int64_t> m_bytes = 0;
    std::atomic<std::int64_t> m_entries = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("Usage: bare-walk FOLDER [THREADS]\n", stderr);
        return 2;
    }
    BareWalk walk(argv[1]);
    walk.run(argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 8);
    std::printf("%lld bytes in %lld entries\n", static_cast<long long>(walk.bytes()),
                static_cast<long long>(walk.entries()));
    return 0;
}
