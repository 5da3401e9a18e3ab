#include "support/RandomTree.h"

#include <array>
#include <fcntl.h>
#include <functional>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brimlet::test {

namespace {

constexpr std::array<std::string_view, 34> meaningfulNames = {
    "Users",        "Library", "Caches",   "Logs",         "Developer", "Mail",     "private",
    "var",          "folders", "tmp",      "Applications", "System",    "Volumes",  "Data",
    "node_modules", ".Trash",  "Tool.app", "P.logicx",     "opt",       "usr",      "cores",
    "a.pdf",        "b.MOV",   "c.tar.gz", "d.exs",        ".hidden",   "name.",    "x.savedState",
    "disk.dmg",     "go",      "s.pages",  "X.xcarchive",  "movie.m4v", "n\nl.txt",
};

class Generator {
public:
    Generator(const TemporaryTree& tree, std::uint32_t seed, std::vector<std::string>& folders)
        : m_tree(tree)
        , m_random(seed)
        , m_folders(folders) {}

    void fill() {
        m_folders.push_back("");
        const std::size_t entries = 20 + below(200);
        for (std::size_t i = 0; i < entries; ++i)
            addEntry();
        if (below(4) == 0)
            addChain(40 + below(60));
    }

    void restrictSomeFolders() {
        for (std::size_t i = 1; i < m_folders.size(); ++i) {
            constexpr std::array<mode_t, 4> modes = {0000, 0300, 0400, 0600};
            if (below(12) == 0)
                chmod(m_tree.path(m_folders[i]).c_str(), modes[below(modes.size())]);
        }
    }

    std::size_t below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(m_random);
    }

private:
    std::string anyBytes(std::size_t length) {
        std::string name;
        while (name.size() < length) {
            const auto byte = static_cast<char>(1 + below(255));
            if (byte != '/')
                name += byte;
        }
        return name == "." || name == ".." ? "dots" : name;
    }

    std::string newPath() {
        std::string name;
        if (below(2) == 0)
            name = meaningfulNames[below(meaningfulNames.size())];
        else
            name = anyBytes(below(10) == 0 ? 255 : 1 + below(12));
        const std::string& folder = m_folders[below(m_folders.size())];
        return folder.empty() ? name : folder + "/" + name;
    }

    void addEntry() {
        const std::string path = newPath();
        if (m_tree.exists(path))
            return;
        switch (below(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            m_tree.directory(path);
            m_folders.push_back(path);
            break;
        case 4:
            addLargeFile(path);
            break;
        case 5:
            m_tree.sparseFile(path, static_cast<std::int64_t>(1 + below(1 << 30)));
            m_files.push_back(path);
            break;
        case 6:
        case 7:
        case 8:
            if (!m_files.empty())
                m_tree.hardLink(path, m_files[below(m_files.size())]);
            break;
        case 9:
            m_tree.symbolicLink(path, m_tree.path(m_folders[below(m_folders.size())]));
            break;
        case 10:
            m_tree.symbolicLink(path, below(2) == 0 || m_files.empty() ? "nowhere" : m_tree.path(m_files[0]));
            m_files.push_back(path);
            break;
        case 11:
            mknod(m_tree.path(path).c_str(), (below(2) == 0 ? S_IFIFO : S_IFSOCK) | 0600, 0);
            m_files.push_back(path);
            break;
        default:
            m_tree.file(path, below(20'000));
            m_files.push_back(path);
        }
    }

    /// Around the size from which a file has a node.
    void addLargeFile(const std::string& path) {
        m_tree.file(path);
        const int descriptor = open(m_tree.path(path).c_str(), O_WRONLY | O_CLOEXEC);
        const auto blocks = static_cast<off_t>(126 + below(5));
        if (posix_fallocate(descriptor, 0, blocks * 4096) != 0)
            throw std::system_error(errno, std::generic_category(), path);
        close(descriptor);
        m_files.push_back(path);
    }

    void addChain(std::size_t levels) {
        std::string path = newPath();
        if (m_tree.exists(path))
            return;
        for (std::size_t i = 0; i < levels && path.size() < 2000; ++i) {
            m_tree.directory(path);
            m_folders.push_back(path);
            m_tree.file(path + "/leaf", below(3000));
            path += "/" + std::string(1 + below(30), 'd');
        }
    }

    const TemporaryTree& m_tree;
    std::mt19937 m_random;
    std::vector<std::string>& m_folders;
    std::vector<std::string> m_files;
};

} // namespace

RandomTree::RandomTree(const TemporaryTree& tree, std::uint32_t seed) {
    Generator generator(tree, seed, folders);
    generator.fill();
    excluded.insert("no/such/folder");
    for (std::size_t i = generator.below(3); i > 0; --i)
        excluded.insert(folders[generator.below(folders.size())]);
    generator.restrictSomeFolders();
}

} // namespace brimlet::test
