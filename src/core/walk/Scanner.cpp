#include "core/walk/Scanner.h"

#include "core/Paths.h"
#include "core/walk/ParallelWalk.h"
#include "core/walk/ScanAssembly.h"

namespace brimlet {

std::shared_ptr<ScanResult> Scanner::scan(const std::string& rootPath,
                                          const std::unordered_set<std::string>& excluded,
                                          const Progress& progress) {
    const auto started = std::chrono::steady_clock::now();
    const std::optional<EntryStatus> status = statusOfPath(rootPath.c_str());
    if (!status || !status->isDirectory())
        return nullptr;

    std::deque<ScanPart> parts;
    const auto newPart = [&]() -> FolderVisitor& { return parts.emplace_back(m_rules, excluded); };
    ParallelWalk::Report report;
    if (progress) {
        report = [&](const WalkCount& count, std::string_view path) {
            progress(count.files, count.bytes, normalisedPath(path));
        };
    }
    ParallelWalk walk(newPart, &m_cancelled, report);
    ScanPart& first = parts.emplace_back(m_rules, excluded);
    const FolderTag root = first.root(rootPath, *status);
    if (!walk.run(rootPath, *status, root, first))
        return nullptr;

    std::shared_ptr<ScanResult> result = assembleScan(*root.node, parts);
    result->rootPath = rootPath;
    result->duration = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
    result->finishedAt = std::chrono::system_clock::now();
    return result;
}

} // namespace brimlet
