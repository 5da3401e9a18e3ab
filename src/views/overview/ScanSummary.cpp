#include "views/overview/ScanSummary.h"

#include "app/state/ScanState.h"
#include "app/Texts.h"
#include "core/Paths.h"

#include <algorithm>

namespace brimlet {

namespace {

/// The buckets that hold anything, largest first.
std::vector<Segment> bucketSegments(const ScanResult& scan) {
    std::vector<Segment> segments;
    for (const StorageBucket bucket : allStorageBuckets()) {
        const auto found = scan.bucketTotals.find(bucket);
        if (found == scan.bucketTotals.end() || found->second <= 0)
            continue;
        const CategoryLook& bucketLook = look(bucket);
        segments.push_back({QString::fromStdString(std::string(bucketLook.caseName)),
                            translatedText(bucketLook.title), static_cast<double>(found->second),
                            QColor::fromRgb(bucketLook.color)});
    }
    std::stable_sort(segments.begin(), segments.end(),
                     [](const Segment& left, const Segment& right) { return left.value > right.value; });
    return segments;
}

QString placeName(const std::string& rootPath, const std::string& homeFolder) {
    for (const ScanTarget& target : {ScanTarget::home(), ScanTarget::wholeDisk()}) {
        if (target.path(homeFolder) == rootPath)
            return QString::fromStdString(target.label());
    }
    return QString::fromStdString(displayPath(rootPath, homeFolder));
}

} // namespace

void ScanSummary::read() {
    if (!state()->scan()->hasScan())
        return;
    const ScanResult& scan = *state()->scan()->scan();
    m_total = static_cast<double>(scan.root->size);
    m_files = static_cast<double>(scan.totalFiles);
    m_folders = static_cast<double>(scan.totalDirectories);
    m_unreadable = static_cast<double>(scan.unreadableDirectories);
    m_seconds = scan.duration;
    m_place = placeName(scan.rootPath, state()->homeFolder());
    m_buckets.clear();
    for (const Segment& segment : bucketSegments(scan))
        m_buckets.append(QVariant::fromValue(segment));
    emit changed();
}

} // namespace brimlet
