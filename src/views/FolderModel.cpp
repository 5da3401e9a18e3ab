#include "views/FolderModel.h"

namespace brimlet {

void FolderModel::activate(int row) {
    FileNode* node = nodeAt(row);
    if (node == nullptr)
        return;
    if (!node->isDirectory || node->isPackage) {
        state()->opener().revealPath(node->path());
        return;
    }
    std::vector<FileNode*> stack = state()->explorerStack();
    stack.push_back(node);
    state()->setExplorerStack(std::move(stack));
}

void FolderModel::watch(AppState& state) {
    NodeTableModel::watch(state);
    connect(&state, &AppState::explorerStackChanged, this, &FolderModel::read);
}

void FolderModel::read() {
    if (!state() || state()->explorerStack().empty())
        listNothing();
    else
        listChildren(state()->scan(), *state()->explorerStack().back());
}

} // namespace brimlet
