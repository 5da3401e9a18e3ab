// What the context menu of a table and the buttons around it do with nodes. Main thread.
#pragma once

#include "views/base/AppStateReader.h"
#include "views/nodes/NodePlans.h"
#include "views/nodes/NodeTableModel.h"

#include <QtQml/qqmlregistration.h>

namespace brimlet {

class NodeActions : public brimlet::AppStateReader { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(int count READ count NOTIFY changed)
    Q_PROPERTY(bool canPreview READ canPreview NOTIFY changed)   ///< the first is a file or a package
    Q_PROPERTY(bool isDirectory READ isDirectory NOTIFY changed) ///< the first is one
    Q_PROPERTY(QString deleteText READ deleteText NOTIFY changed)

public:
    using AppStateReader::AppStateReader;

    int count() const { return static_cast<int>(m_choice.count()); }
    bool canPreview() const;
    bool isDirectory() const;
    QString deleteText() const;

    void take(NodeChoice choice);
    FileNode* first() const { return state() ? m_choice.first() : nullptr; } ///< null where there is none

    /// Takes over the selected rows of a table, topmost first.
    Q_INVOKABLE void takeSelected(brimlet::NodeTableModel* table);

    // All but the last act on the first node alone; none does anything without nodes.
    Q_INVOKABLE void reveal();
    Q_INVOKABLE void open();
    Q_INVOKABLE void openInExplorer();
    Q_INVOKABLE void copyPath();
    Q_INVOKABLE void excludeFromScans();
    Q_INVOKABLE void remove(); ///< proposes a plan of all nodes

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    NodeChoice m_choice;
};

} // namespace brimlet
