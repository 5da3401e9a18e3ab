#include "views/ExplorerModel.h"

#include "app/Formats.h"
#include "core/Paths.h"
#include "views/NodeLook.h"
#include "views/NodePlans.h"
#include "views/Segment.h"

namespace brimlet {

namespace {

constexpr std::size_t segmentCount = 12;
constexpr std::string_view mapMode = "map";
constexpr std::string_view listMode = "list";

} // namespace

void ExplorerModel::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    if (m_state) {
        connect(m_state, &AppState::explorerStackChanged, this, &ExplorerModel::changed);
        connect(m_state, &AppState::revisionChanged, this, &ExplorerModel::changed);
    }
    emit stateChanged();
    emit changed();
    emit showsMapChanged();
}

FileNode* ExplorerModel::current() const {
    return m_state && !m_state->explorerStack().empty() ? m_state->explorerStack().back() : nullptr;
}

QStringList ExplorerModel::crumbs() const {
    QStringList crumbs;
    if (isEmpty())
        return crumbs;
    for (const FileNode* node : m_state->explorerStack())
        crumbs << displayText(node->parent != nullptr ? std::string(node->name)
                                                      : displayPath(node->path(), m_state->homeFolder()));
    return crumbs;
}

QString ExplorerModel::title() const {
    if (isEmpty())
        return {};
    return current()->parent != nullptr ? displayText(current()->name) : m_state->scanTargetLabel();
}

QVariantList ExplorerModel::segments() const {
    QVariantList segments;
    if (isEmpty())
        return segments;
    for (const FileNode* child : largestChildren(*current(), segmentCount))
        segments << QVariant::fromValue(Segment{displayText(child->name), displayText(child->name),
                                                static_cast<double>(child->size),
                                                QColor::fromRgb(look(child->bucket).color)});
    return segments;
}

QString ExplorerModel::smallFilesNote() const {
    if (isEmpty() || current()->smallFilesCount < 1)
        return {};
    return tr("Also: %1 small files directly in this folder · %2")
        .arg(current()->smallFilesCount)
        .arg(bytesText(current()->smallFilesSize, QLocale()));
}

bool ExplorerModel::showsMap() const {
    return m_state && m_state->preferences().explorerMode() == mapMode;
}

void ExplorerModel::setShowsMap(bool map) {
    if (!m_state || map == showsMap())
        return;
    m_state->preferences().setExplorerMode(std::string(map ? mapMode : listMode));
    emit showsMapChanged();
}

void ExplorerModel::goTo(int crumb) {
    if (isEmpty() || crumb < 0 || static_cast<std::size_t>(crumb) >= m_state->explorerStack().size())
        return;
    std::vector<FileNode*> stack = m_state->explorerStack();
    stack.resize(static_cast<std::size_t>(crumb) + 1);
    m_state->setExplorerStack(std::move(stack));
}

void ExplorerModel::goUp() {
    if (canGoUp())
        goTo(static_cast<int>(m_state->explorerStack().size()) - 2);
}

void ExplorerModel::revealCurrent() {
    if (!isEmpty())
        m_state->opener().revealPath(current()->path());
}

} // namespace brimlet
