#include "views/explorer/FolderModel.h"
#include "app/state/NavigationState.h"
#include "app/state/ScanState.h"
#include "platform/SystemOpener.h"

#include <algorithm>
#include <utility>

namespace brimlet {

void FolderModel::activate(int row) {
    FileNode* node = nodeAt(row);
    if (node == nullptr)
        return;
    if (!node->isDirectory || node->isPackage) {
        state()->opener().revealPath(node->path());
        return;
    }
    std::vector<FileNode*> stack = state()->navigation()->explorerStack();
    stack.push_back(node);
    state()->navigation()->setExplorerStack(std::move(stack));
}

void FolderModel::watch(AppState& state) {
    NodeTableModel::watch(state);
    connect(state.navigation(), &NavigationState::explorerStackChanged, this, &FolderModel::read);
}

void FolderModel::read() {
    const auto before = std::exchange(m_listedScan, state()->scan()->scan());
    const std::vector<FileNode*> wayBefore = std::exchange(m_way, state()->navigation()->explorerStack());
    if (m_way.empty()) {
        listNothing();
        return;
    }
    listChildren(m_listedScan, *m_way.back());
    // Going up leads to the folder that one comes from.
    const bool wentUp = before == m_listedScan && m_way.size() < wayBefore.size() &&
                        std::equal(m_way.begin(), m_way.end(), wayBefore.begin());
    if (wentUp)
        chooseNode(wayBefore[m_way.size()]);
}

} // namespace brimlet
