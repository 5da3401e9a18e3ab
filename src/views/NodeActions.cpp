#include "views/NodeActions.h"

#include "app/Exclusions.h"
#include "core/Paths.h"
#include "views/NodeLook.h"
#include "views/NodePlans.h"

#include <algorithm>
#include <QClipboard>
#include <QGuiApplication>

namespace brimlet {

namespace {

/// A verdict takes about a microsecond; more than this many are asked for in the background.
constexpr std::size_t immediateCount = 1'000;

} // namespace

void NodeActions::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    if (m_state)
        connect(m_state, &AppState::revisionChanged, this, &NodeActions::dropEarlierScan);
    emit stateChanged();
}

bool NodeActions::canPreview() const {
    return first() != nullptr && (!first()->isDirectory || first()->isPackage);
}

bool NodeActions::isDirectory() const {
    return first() != nullptr && first()->isDirectory;
}

QString NodeActions::deleteText() const {
    return count() == 1 ? tr("Delete…") : tr("Delete %1 Items…").arg(count());
}

void NodeActions::take(std::shared_ptr<const ScanResult> scan, std::vector<FileNode*> nodes) {
    m_scan = std::move(scan);
    m_nodes = std::move(nodes);
    emit nodesChanged();
}

/// What was taken from a tree that has been replaced is no longer what the user sees.
void NodeActions::dropEarlierScan() {
    if (m_scan && m_scan != m_state->scan())
        take(nullptr, {});
}

void NodeActions::takeSelected(NodeTableModel* table) {
    take(table->scan(), table->selectedNodes());
}

void NodeActions::reveal() {
    if (first() != nullptr)
        m_state->opener().revealPath(first()->path());
}

void NodeActions::open() {
    if (first() != nullptr)
        m_state->opener().openPath(first()->path());
}

void NodeActions::openInExplorer() {
    if (first() == nullptr)
        return;
    m_state->setExplorerStack(explorerStackFor(*first()));
    m_state->setSection(AppSection::explorer);
}

void NodeActions::copyPath() {
    if (first() != nullptr)
        QGuiApplication::clipboard()->setText(displayText(normalisedPath(first()->path())));
}

void NodeActions::excludeFromScans() {
    if (first() != nullptr)
        m_state->setExcludedRaw(withExcludedPath(m_state->excludedRaw(), first()->path()));
}

void NodeActions::remove() {
    if (first() == nullptr)
        return;
    const std::string title = tr("Delete Items").toStdString();
    const bool holdsFolders =
        std::ranges::any_of(m_nodes, [](const FileNode* node) { return node->isDirectory; });
    if (m_nodes.size() <= immediateCount || holdsFolders) {
        m_state->proposePlan(planItems(m_nodes, m_state->policy()), title);
        return;
    }
    m_work.run(
        [scan = m_scan, nodes = m_nodes, &policy = m_state->policy()] { return planItems(nodes, policy); },
        [state = m_state, title](const std::vector<PlanItem>& items) {
            if (state)
                state->proposePlan(items, title);
        });
}

} // namespace brimlet
