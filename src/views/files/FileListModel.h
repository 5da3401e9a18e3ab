// The files of the scan that a filter lets through: the rows of Large & Old and of By File Type. Main thread.
#pragma once

#include "views/files/FilterEditor.h"
#include "views/nodes/NodeTableModel.h"

namespace brimlet {

class FileListModel : public brimlet::NodeTableModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::FilterEditor* filter READ filter WRITE setFilter NOTIFY filterChanged REQUIRED)
    Q_PROPERTY(
        int onlyKind READ onlyKind WRITE setOnlyKind NOTIFY onlyKindChanged) ///< a FileKind; -1 for all

    /// How many files of the kind are too small to be listed, as a sentence; empty where none are or a filter
    /// is set.
    Q_PROPERTY(QString smallFilesNote READ smallFilesNote NOTIFY rowsChanged)

public:
    explicit FileListModel(QObject* parent = nullptr)
        : NodeTableModel(parent) {}

    FilterEditor* filter() const { return m_filter; }
    void setFilter(FilterEditor* filter);
    int onlyKind() const { return m_onlyKind; }
    void setOnlyKind(int kind);
    QString smallFilesNote() const;

    /// Asks where to, and writes the listed files there in the background. A failed write leaves nothing.
    Q_INVOKABLE void exportCsv();

signals:
    void filterChanged();
    void onlyKindChanged();

protected:
    void read() override;

private:
    QPointer<FilterEditor> m_filter;
    int m_onlyKind = -1;
};

} // namespace brimlet
