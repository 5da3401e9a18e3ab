#include "core/walk/MeasureTree.h"

#include "core/walk/ParallelWalk.h"

#include <algorithm>
#include <deque>
#include <vector>

namespace brimlet {

namespace {

/// What one thread has measured. Links to one file are told apart once the walk has ended; each of them has
/// the same size, so it doesn't matter which one counts.
class MeasurePart : public FolderVisitor {
public:
    struct LinkedFile {
        std::uint64_t key;
        std::int64_t bytes;
    };

    void begin(const Folder&) override {}
    void file(const DirectoryEntry& entry) override { add(*entry.status); }
    bool directory(const DirectoryEntry& entry, FolderTag&) override {
        add(*entry.status);
        return true;
    }
    void unexaminable() override {}
    void unreadable() override {}
    void end() override {}
    WalkCount counted() const override { return {measure.files, measure.bytes}; }

    void add(const EntryStatus& status) {
        if (status.isSharedFile()) {
            linkedFiles.push_back({status.linkKey(), status.allocatedBytes});
            return;
        }
        measure.bytes += status.allocatedBytes;
        measure.files += status.isDirectory() ? 0 : 1;
    }

    TreeMeasure measure;
    std::vector<LinkedFile> linkedFiles;
};

TreeMeasure sumOf(std::deque<MeasurePart>& parts) {
    TreeMeasure sum;
    std::vector<MeasurePart::LinkedFile> linked;
    for (const MeasurePart& part : parts) {
        sum.bytes += part.measure.bytes;
        sum.files += part.measure.files;
        linked.insert(linked.end(), part.linkedFiles.begin(), part.linkedFiles.end());
    }
    std::sort(linked.begin(), linked.end(), [](const auto& a, const auto& b) { return a.key < b.key; });
    const auto end = std::unique(linked.begin(), linked.end(),
                                 [](const auto& a, const auto& b) { return a.key == b.key; });
    for (auto file = linked.begin(); file != end; ++file) {
        sum.bytes += file->bytes;
        ++sum.files;
    }
    return sum;
}

} // namespace

TreeMeasure measureTree(const std::string& path) {
    const std::optional<EntryStatus> status = statusOfPath(path.c_str());
    if (!status)
        return {};
    std::deque<MeasurePart> parts;
    MeasurePart& first = parts.emplace_back();
    first.add(*status);
    if (status->isDirectory()) {
        const auto newPart = [&]() -> FolderVisitor& { return parts.emplace_back(); };
        ParallelWalk(newPart, nullptr, {}).run(path, *status, {}, first);
    }
    return sumOf(parts);
}

} // namespace brimlet
