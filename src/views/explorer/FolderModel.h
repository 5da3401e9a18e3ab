// What lies directly in the Explorer's current folder. Main thread.
#pragma once

#include "views/nodes/NodeTableModel.h"

namespace brimlet {

class FolderModel : public brimlet::NodeTableModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

public:
    explicit FolderModel(QObject* parent = nullptr)
        : NodeTableModel(parent) {}

    /// What a double click or Return does with a row: a folder that is no package is entered, anything else
    /// shown in the file manager.
    Q_INVOKABLE void activate(int row);

protected:
    void read() override;
    void watch(AppState& state) override;

private:
    std::shared_ptr<const ScanResult> m_listedScan;
    std::vector<FileNode*> m_way; ///< down to the folder that is listed
};

} // namespace brimlet
