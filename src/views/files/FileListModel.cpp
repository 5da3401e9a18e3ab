#include "views/files/FileListModel.h"

#include "app/Formats.h"
#include "app/state/ScanState.h"
#include "core/Localized.h"
#include "platform/Panels.h"
#include "views/files/CsvExport.h"

namespace brimlet {

void FileListModel::setFilter(FilterEditor* filter) {
    if (m_filter == filter)
        return;
    if (m_filter)
        m_filter->disconnect(this);
    m_filter = filter;
    if (m_filter)
        connect(m_filter, &FilterEditor::changed, this, &FileListModel::read);
    emit filterChanged();
    read();
}

void FileListModel::setOnlyKind(int kind) {
    if (m_onlyKind == kind)
        return;
    m_onlyKind = kind;
    emit onlyKindChanged();
    read();
}

void FileListModel::read() {
    if (!state() || !m_filter)
        return;
    if (!state()->scan()->hasScan()) {
        listNothing();
        return;
    }
    FileFilter filter = m_filter->value();
    if (m_onlyKind >= 0)
        filter.kinds = {static_cast<FileKind>(m_onlyKind)};
    listFiles(state()->scan()->scan(), filter);
}

QString FileListModel::smallFilesNote() const {
    if (m_onlyKind < 0 || !isReady() || !scan() || !m_filter || m_filter->value() != FileFilter())
        return {};
    const auto counted = scan()->kindCounts.find(static_cast<FileKind>(m_onlyKind));
    if (counted == scan()->kindCounts.end() || counted->second <= count())
        return {};
    return tr("Only files over 512 KB are listed. The remaining %1 smaller files still count toward the "
              "totals.")
        .arg(countText(counted->second - count(), QLocale()));
}

void FileListModel::exportCsv() {
    if (!isReady())
        return;
    const std::string base =
        m_onlyKind >= 0 ? localized(look(static_cast<FileKind>(m_onlyKind)).title) : "files";
    state()->panels().chooseFileToSave(
        "Brimlet-" + base + ".csv",
        [self = QPointer(this), scan = scan(), nodes = listedNodes()](std::optional<std::string> path) {
            if (!self || !path)
                return;
            self->state()->runInBackground(
                [path = *path, scan, nodes] { writeAtomically(path, csvText(nodes)); });
        });
}

} // namespace brimlet
