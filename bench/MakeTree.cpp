// make-tree FOLDER [FILES] [SEED]: fills a new folder with a tree that looks like a home folder to a scanner.
// The same numbers give the same tree. About 15 files a folder, folders 8 deep on average; most files of a
// few blocks, one in 500 of more than 512 KiB, one in 100 a further hard link, one in 100 sparse. Space is
// allocated, not written.

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <random>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::array<std::string_view, 16> extensions = {".txt", ".js", ".json", ".png", ".o",   ".h",
                                                         ".py",  "",    ".md",   ".jpg", ".log", ".cpp",
                                                         ".pdf", "",    ".mp3",  ".zip"};
constexpr std::array<std::string_view, 8> folderNames = {"src",   "data", "node_modules", "Library",
                                                         "photo", "lib",  "Caches",       "module"};

class TreeMaker {
public:
    TreeMaker(const std::string& root, std::uint32_t seed)
        : m_random(seed) {
        m_folders.push_back({root, 0});
    }

    bool make(std::int64_t files) {
        if (mkdir(m_folders[0].path.c_str(), 0755) != 0)
            return false;
        for (std::int64_t i = 0; i < files; ++i) {
            if (i % 15 == 0 && !addFolder())
                return false;
            if (!addFile())
                return false;
        }
        return true;
    }

private:
    struct Folder {
        std::string path;
        int depth;
    };

    std::uint32_t below(std::uint32_t limit) { return m_random() % limit; }

    bool addFolder() {
        // New folders go mostly into recent ones, as programs make them.
        const std::size_t recent = std::min<std::size_t>(m_folders.size(), 40);
        std::size_t parent = below(3) == 0 ? below(static_cast<std::uint32_t>(m_folders.size()))
                                           : m_folders.size() - 1 - below(static_cast<std::uint32_t>(recent));
        while (m_folders[parent].depth >= 16)
            parent = below(static_cast<std::uint32_t>(m_folders.size()));
        std::string path = m_folders[parent].path + "/";
        path += folderNames[below(folderNames.size())];
        path += std::to_string(m_folders.size());
        if (mkdir(path.c_str(), 0755) != 0)
            return false;
        m_folders.push_back({std::move(path), m_folders[parent].depth + 1});
        return true;
    }

    bool addFile() {
        const std::size_t recent = std::min<std::size_t>(m_folders.size(), 20);
        const Folder& folder = m_folders[m_folders.size() - 1 - below(static_cast<std::uint32_t>(recent))];
        std::string path = folder.path + "/file" + std::to_string(m_made++);
        path += extensions[below(extensions.size())];
        const std::uint32_t dice = below(1000);
        if (dice < 10 && !m_last.empty())
            return link(m_last.c_str(), path.c_str()) == 0;
        const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0644);
        if (file < 0)
            return false;
        bool done = true;
        if (dice < 20)
            done = ftruncate(file, 1 + below(1 << 30)) == 0;
        else if (dice < 22)
            done = posix_fallocate(file, 0, off_t{1024} * (512 + below(512))) == 0;
        else
            done = posix_fallocate(file, 0, 1 + below(1 << (8 + below(8)))) == 0;
        close(file);
        m_last = std::move(path);
        return done;
    }

    std::mt19937 m_random;
    std::vector<Folder> m_folders;
    std::string m_last;
    std::int64_t m_made = 0;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("Usage: make-tree FOLDER [FILES] [SEED]\n", stderr);
        return 2;
    }
    const std::int64_t files = argc > 2 ? std::atoll(argv[2]) : 1'000'000;
    const auto seed = static_cast<std::uint32_t>(argc > 3 ? std::atoll(argv[3]) : 1);
    if (TreeMaker(argv[1], seed).make(files))
        return 0;
    std::perror("make-tree");
    return 2;
}
