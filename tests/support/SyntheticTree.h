// Scan results made without a disk, for tests and benchmarks.
#pragma once

#include "core/ScanResult.h"

#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brimlet::test {

class SyntheticTree {
public:
    explicit SyntheticTree(std::string_view rootPath = "/root");

    FileNode* root() const { return m_result->root; }
    FileNode* directory(FileNode* parent, std::string_view name);

    /// Its kind and bucket are told by its name.
    FileNode* file(FileNode* parent, std::string_view name, std::int64_t size, double modified = 1.7e9);

    /// Adds files that have no node of their own.
    void smallFiles(FileNode* directory, std::uint32_t count, std::int64_t size);

    /// Sums up and hands over. The tree can't be added to any more.
    std::shared_ptr<ScanResult> finish();

private:
    void addUp(FileNode& node);

    std::shared_ptr<ScanResult> m_result = std::make_shared<ScanResult>();
    std::unordered_map<FileNode*, std::vector<FileNode*>> m_children;
};

struct RandomTreeShape {
    int directories = 200;
    int files = 1'000;
    int distinctSizes = 1'000'000; ///< few give many equal sizes
};

/// Folders below folders and files in them, sizes spread over six powers of ten, times over ten years.
std::shared_ptr<ScanResult> randomTree(std::uint32_t seed, const RandomTreeShape& shape = {});

} // namespace brimlet::test
