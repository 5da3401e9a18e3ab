#include "app/state/NavigationState.h"

#include "app/state/ScanState.h"
#include "core/ScanResult.h"

#include <algorithm>
#include <utility>

namespace brimlet {

NavigationState::NavigationState(AppSection section, const ScanState& scan)
    : m_scan(scan)
    , m_section(section) {
    connect(&scan, &ScanState::scanChanged, this, &NavigationState::followTree);
}

void NavigationState::setSection(AppSection section) {
    change(m_section, section, &NavigationState::sectionChanged);
}

QString NavigationState::sectionRaw() const {
    const std::string_view raw = look(m_section).rawValue;
    return QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size()));
}

void NavigationState::setSectionRaw(const QString& raw) {
    if (const auto section = sectionFromRaw(raw.toStdString()))
        setSection(*section);
}

void NavigationState::setExplorerStack(std::vector<FileNode*> stack) {
    if (!stack.empty() && (!m_scan.scan() || stack.front() != m_scan.scan()->root))
        return;
    change(m_explorerStack, std::move(stack), &NavigationState::explorerStackChanged);
}

void NavigationState::setLargeFilter(FileFilter filter) {
    change(m_largeFilter, std::move(filter), &NavigationState::largeFilterChanged);
}

void NavigationState::followTree() {
    FileNode* root = m_scan.scan()->root;
    if (m_explorerStack.empty() || m_explorerStack.front() != root) {
        setExplorerStack({root});
        return;
    }
    const auto gone =
        std::ranges::find_if(m_explorerStack, [](const FileNode* node) { return node->deleted; });
    if (gone != m_explorerStack.begin())
        setExplorerStack({m_explorerStack.begin(), gone});
}

} // namespace brimlet
