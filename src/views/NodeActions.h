// What the context menu of a table and the buttons around it do with nodes. Main thread.
#pragma once

#include "app/AppState.h"
#include "views/NodeTableModel.h"

#include <memory>
#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace brimlet {

class NodeActions : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY nodesChanged)
    Q_PROPERTY(bool canPreview READ canPreview NOTIFY nodesChanged)   ///< the first is a file or a package
    Q_PROPERTY(bool isDirectory READ isDirectory NOTIFY nodesChanged) ///< the first is one
    Q_PROPERTY(QString deleteText READ deleteText NOTIFY nodesChanged)

public:
    explicit NodeActions(QObject* parent = nullptr)
        : QObject(parent) {}

    AppState* state() const { return m_state; }
    void setState(AppState* state);
    int count() const { return static_cast<int>(m_nodes.size()); }
    bool canPreview() const;
    bool isDirectory() const;
    QString deleteText() const;

    void take(std::shared_ptr<const ScanResult> scan, std::vector<FileNode*> nodes);
    const std::vector<FileNode*>& nodes() const { return m_nodes; }

    /// Takes over the selected rows of a table, topmost first.
    Q_INVOKABLE void takeSelected(brimlet::NodeTableModel* table);

    // All but the last act on the first node alone; none does anything without nodes.
    Q_INVOKABLE void reveal();
    Q_INVOKABLE void open();
    Q_INVOKABLE void openInExplorer();
    Q_INVOKABLE void copyPath();
    Q_INVOKABLE void excludeFromScans();
    Q_INVOKABLE void remove(); ///< proposes a plan of all nodes

signals:
    void stateChanged();
    void nodesChanged();

private:
    void dropEarlierScan();
    FileNode* first() const { return m_state && !m_nodes.empty() ? m_nodes.front() : nullptr; }

    QPointer<AppState> m_state;
    std::shared_ptr<const ScanResult> m_scan; ///< keeps the nodes
    std::vector<FileNode*> m_nodes;
    BackgroundWork m_work;
};

} // namespace brimlet
