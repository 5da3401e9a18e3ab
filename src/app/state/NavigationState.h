// Where the user is: the section, the way down the explorer, the filter of Large & Old. Main thread.
#pragma once

#include "app/state/AppSection.h"
#include "app/state/StatePart.h"
#include "core/FileFilter.h"

#include <QString>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace brimlet {

struct FileNode;
class ScanState;

class NavigationState : public StatePart {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(QString section READ sectionRaw WRITE setSectionRaw NOTIFY sectionChanged)

public:
    /// Stands at the root of each new scan, and in the nearest folder that is left where one goes. Hears of
    /// that before whoever connects to `scan` later.
    NavigationState(AppSection section, const ScanState& scan);

    AppSection section() const { return m_section; }
    void setSection(AppSection section);
    QString sectionRaw() const;
    void setSectionRaw(const QString& raw); ///< a text that names no section is ignored

    /// From the scan's root to the folder that is shown; empty before the first scan.
    const std::vector<FileNode*>& explorerStack() const { return m_explorerStack; }
    void setExplorerStack(std::vector<FileNode*> stack); ///< one of an earlier scan is ignored

    const FileFilter& largeFilter() const { return m_largeFilter; }
    void setLargeFilter(FileFilter filter);

signals:
    void sectionChanged();
    void explorerStackChanged();
    void largeFilterChanged();

private:
    void followTree();

    const ScanState& m_scan;
    AppSection m_section;
    std::vector<FileNode*> m_explorerStack;
    FileFilter m_largeFilter;
};

} // namespace brimlet
