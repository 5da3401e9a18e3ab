#include "support/FtsWalk.h"

#include "core/Paths.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <array>
#include <fts.h>
#include <optional>
#include <sstream>
#include <sys/stat.h>
#include <vector>

namespace brimlet::test {

namespace {

/// An open fts stream over one path.
class FtsStream {
public:
    explicit FtsStream(std::string path)
        : m_path(std::move(path)) {
        std::array<char*, 2> paths = {m_path.data(), nullptr};
        m_stream = fts_open(paths.data(), FTS_NOCHDIR | FTS_PHYSICAL | FTS_XDEV, nullptr);
    }
    ~FtsStream() {
        if (m_stream != nullptr)
            fts_close(m_stream);
    }
    FtsStream(const FtsStream&) = delete;
    FtsStream& operator=(const FtsStream&) = delete;

    FTSENT* next() { return m_stream != nullptr ? fts_read(m_stream) : nullptr; }
    void skip(FTSENT* entry) { fts_set(m_stream, entry, FTS_SKIP); }

private:
    std::string m_path;
    FTS* m_stream = nullptr;
};

constexpr long entered = 1;
constexpr long skipped = 2;

std::int64_t allocated(const FTSENT& entry) {
    return static_cast<std::int64_t>(entry.fts_statp->st_blocks) * 512;
}

std::uint64_t linkKey(const struct stat& status) {
    return status.st_ino ^ (static_cast<std::uint64_t>(status.st_dev) << 48);
}

class FtsScan {
public:
    FtsScan(const std::string& rootPath, const std::unordered_set<std::string>& excluded)
        : m_stream(rootPath)
        , m_excluded(excluded)
        , m_result(std::make_shared<ScanResult>()) {
        m_result->rootPath = rootPath;
    }

    std::shared_ptr<ScanResult> run() {
        while (FTSENT* entry = m_stream.next())
            take(*entry);
        return m_result->root != nullptr ? m_result : nullptr;
    }

private:
    struct Level {
        FileNode* node;
        std::vector<FileNode*> children;
    };

    void take(FTSENT& entry) {
        switch (entry.fts_info) {
        case FTS_D:
            takeDirectory(entry);
            break;
        case FTS_DP:
            if (entry.fts_number == entered && !m_stack.empty())
                leave();
            break;
        case FTS_F:
        case FTS_DEFAULT:
        case FTS_SL:
        case FTS_SLNONE:
            if (!m_stack.empty())
                takeFile(entry);
            break;
        case FTS_DNR:
        case FTS_NS:
        case FTS_ERR:
            takeError(entry);
            break;
        default:
            break;
        }
    }

    void takeDirectory(FTSENT& entry) {
        const std::string path = std::string(normalisedPath(entry.fts_path));
        if (m_result->root != nullptr && m_excluded.contains(path)) {
            entry.fts_number = skipped;
            m_stream.skip(&entry);
            return;
        }
        const std::string_view whole = entry.fts_path;
        const std::string_view name =
            m_result->root == nullptr ? whole : whole.substr(whole.size() - entry.fts_namelen);
        FileNode* node = m_result->arena.newNode(name);
        node->isDirectory = true;
        node->bucket = bucketOf(name, path);
        node->isPackage = macosTables().folders.isPackage(name);
        node->kind = name.ends_with(".app") ? FileKind::application : FileKind::other;
        node->size = allocated(entry);
        node->modified = static_cast<double>(entry.fts_statp->st_mtime);
        node->accessed = static_cast<double>(entry.fts_statp->st_atime);
        append(node);
        if (m_result->root == nullptr)
            m_result->root = node;
        entry.fts_number = entered;
        m_stack.push_back({node, {}});
        ++m_result->totalDirectories;
        m_result->bucketTotals[node->bucket] += node->size;
    }

    StorageBucket bucketOf(std::string_view name, std::string_view path) const {
        std::optional<StorageBucket> inherited;
        if (!m_stack.empty() && m_stack.back().node->bucket != StorageBucket::other)
            inherited = m_stack.back().node->bucket;
        return macosTables()
            .folders.bucket(name, pathComponents(path), inherited)
            .value_or(StorageBucket::other);
    }

    void append(FileNode* node) {
        if (m_stack.empty())
            return;
        node->parent = m_stack.back().node;
        m_stack.back().children.push_back(node);
    }

    void leave() {
        Level level = std::move(m_stack.back());
        m_stack.pop_back();
        level.node->children = m_result->arena.newChildren(level.children.size());
        std::copy(level.children.begin(), level.children.end(), level.node->children.begin());
        if (m_stack.empty())
            return;
        FileNode& parent = *m_stack.back().node;
        parent.size += level.node->size;
        parent.logicalSize += level.node->logicalSize;
        parent.fileCount += level.node->fileCount;
    }

    void takeFile(const FTSENT& entry) {
        const struct stat& status = *entry.fts_statp;
        if (entry.fts_info == FTS_F && status.st_nlink >= 2 && !m_seenLinks.insert(linkKey(status)).second) {
            ++m_result->hardLinksSkipped;
            return;
        }
        FileNode& parent = *m_stack.back().node;
        const FileKind kind = fileKindForName(lastPathComponent(entry.fts_path));
        const StorageBucket bucket = bucketForFile(parent.bucket, kind);
        const std::int64_t size = allocated(entry);
        parent.size += size;
        parent.logicalSize += status.st_size;
        ++parent.fileCount;
        ++m_result->totalFiles;
        m_result->bucketTotals[bucket] += size;
        m_result->kindTotals[kind] += size;
        ++m_result->kindCounts[kind];
        if (size < fileNodeThreshold) {
            parent.smallFilesSize += size;
            ++parent.smallFilesCount;
            return;
        }
        FileNode* node = m_result->arena.newNode(lastPathComponent(entry.fts_path));
        node->kind = kind;
        node->bucket = bucket;
        node->size = size;
        node->logicalSize = status.st_size;
        node->fileCount = 1;
        node->modified = static_cast<double>(status.st_mtime);
        node->accessed = static_cast<double>(status.st_atime);
        append(node);
        m_result->files.push_back(node);
    }

    void takeError(const FTSENT& entry) {
        ++m_result->unreadableDirectories;
        if (m_stack.empty())
            return;
        if (entry.fts_number == entered) {
            m_stack.back().node->unreadable = true;
            leave();
        } else if (entry.fts_info == FTS_DNR) {
            FileNode* node = m_result->arena.newNode(lastPathComponent(entry.fts_path));
            node->isDirectory = true;
            node->bucket = m_stack.back().node->bucket;
            node->unreadable = true;
            append(node);
        }
    }

    FtsStream m_stream;
    const std::unordered_set<std::string>& m_excluded;
    std::shared_ptr<ScanResult> m_result;
    std::vector<Level> m_stack;
    std::unordered_set<std::uint64_t> m_seenLinks;
};

/// Every field of a node but its place in the tree.
std::string fieldsOf(const FileNode& node) {
    std::ostringstream text;
    text << node.path() << " size " << node.size << " logicalSize " << node.logicalSize << " fileCount "
         << node.fileCount << " modified " << node.modified << " accessed " << node.accessed << " small "
         << node.smallFilesSize << " in " << node.smallFilesCount << " kind " << look(node.kind).caseName
         << " bucket " << look(node.bucket).caseName << " isDirectory " << node.isDirectory << " isPackage "
         << node.isPackage << " unreadable " << node.unreadable << " deleted " << node.deleted << " children "
         << node.children.size() << " parent " << (node.parent != nullptr ? node.parent->path() : "none");
    return text.str();
}

std::string difference(std::string_view what, const std::string& actual, const std::string& expected) {
    if (actual == expected)
        return {};
    return std::string(what) + "\n  actual:   " + actual + "\n  expected: " + expected + "\n";
}

std::string countersOf(const ScanResult& result) {
    std::ostringstream text;
    text << result.rootPath << " totalFiles " << result.totalFiles << " totalDirectories "
         << result.totalDirectories << " unreadableDirectories " << result.unreadableDirectories
         << " hardLinksSkipped " << result.hardLinksSkipped;
    const auto addMap = [&](std::string_view name, const auto& map) {
        text << ' ' << name;
        for (const auto& [category, value] : map)
            text << ' ' << look(category).caseName << '=' << value;
    };
    addMap("bucketTotals", result.bucketTotals);
    addMap("kindTotals", result.kindTotals);
    addMap("kindCounts", result.kindCounts);
    return text.str();
}

} // namespace

std::shared_ptr<ScanResult> ftsScan(const std::string& rootPath,
                                    const std::unordered_set<std::string>& excluded) {
    return FtsScan(rootPath, excluded).run();
}

TreeMeasure ftsMeasure(const std::string& path) {
    FtsStream stream(path);
    TreeMeasure measure;
    std::unordered_set<std::uint64_t> seenLinks;
    while (const FTSENT* entry = stream.next()) {
        const int info = entry->fts_info;
        if (info != FTS_F && info != FTS_D && info != FTS_DEFAULT && info != FTS_SL)
            continue;
        const struct stat& status = *entry->fts_statp;
        if (info == FTS_F && status.st_nlink >= 2 && !seenLinks.insert(linkKey(status)).second)
            continue;
        measure.bytes += allocated(*entry);
        measure.files += info == FTS_D ? 0 : 1;
    }
    return measure;
}

std::string differences(const ScanResult& actual, const ScanResult& expected) {
    std::string text = difference("counters", countersOf(actual), countersOf(expected));
    text += difference("files", std::to_string(actual.files.size()), std::to_string(expected.files.size()));
    for (std::size_t i = 0; i < std::min(actual.files.size(), expected.files.size()) && text.empty(); ++i)
        text += difference("file in walk order", fieldsOf(*actual.files[i]), fieldsOf(*expected.files[i]));
    std::vector<std::pair<const FileNode*, const FileNode*>> work = {{actual.root, expected.root}};
    while (!work.empty() && text.empty()) {
        const auto [left, right] = work.back();
        work.pop_back();
        text += difference("node", fieldsOf(*left), fieldsOf(*right));
        for (std::size_t i = 0; i < std::min(left->children.size(), right->children.size()); ++i)
            work.emplace_back(left->children[i], right->children[i]);
    }
    return text;
}

} // namespace brimlet::test
