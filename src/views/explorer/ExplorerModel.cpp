#include "views/explorer/ExplorerModel.h"

#include "app/Formats.h"
#include "app/state/NavigationState.h"
#include "app/state/PreferencesState.h"
#include "app/state/ScanState.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "platform/SystemOpener.h"
#include "views/components/Segment.h"
#include "views/nodes/NodeLook.h"
#include "views/nodes/NodePlans.h"

namespace brimlet {

namespace {

constexpr std::size_t segmentCount = 12;
constexpr std::string_view mapMode = "map";
constexpr std::string_view listMode = "list";

} // namespace

void ExplorerModel::watch(AppState& state) {
    connect(state.navigation(), &NavigationState::explorerStackChanged, this, &ExplorerModel::changed);
    connect(state.scan(), &ScanState::revisionChanged, this, &ExplorerModel::changed);
    connect(state.scan(), &ScanState::scanTargetChanged, this, &ExplorerModel::changed);
}

void ExplorerModel::read() {
    emit changed();
    emit showsMapChanged();
}

FileNode* ExplorerModel::current() const {
    return state() && !state()->navigation()->explorerStack().empty()
               ? state()->navigation()->explorerStack().back()
               : nullptr;
}

QStringList ExplorerModel::crumbs() const {
    QStringList crumbs;
    if (isEmpty())
        return crumbs;
    for (const FileNode* node : state()->navigation()->explorerStack())
        crumbs << shownText(node->parent != nullptr ? std::string(node->name)
                                                    : displayPath(node->path(), state()->homeFolder()));
    return crumbs;
}

QString ExplorerModel::title() const {
    if (isEmpty())
        return {};
    return current()->parent != nullptr ? shownText(current()->name) : state()->scan()->scanTargetLabel();
}

QVariantList ExplorerModel::segments() const {
    QVariantList segments;
    if (isEmpty())
        return segments;
    for (const FileNode* child : largestChildren(*current(), segmentCount))
        segments << QVariant::fromValue(Segment{shownText(child->name), shownText(child->name),
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
    return state() && state()->preferences()->stored().explorerMode() == mapMode;
}

void ExplorerModel::setShowsMap(bool map) {
    if (!state() || map == showsMap())
        return;
    state()->preferences()->stored().setExplorerMode(std::string(map ? mapMode : listMode));
    emit showsMapChanged();
}

void ExplorerModel::goTo(int crumb) {
    if (isEmpty() || crumb < 0 ||
        static_cast<std::size_t>(crumb) >= state()->navigation()->explorerStack().size())
        return;
    std::vector<FileNode*> stack = state()->navigation()->explorerStack();
    stack.resize(static_cast<std::size_t>(crumb) + 1);
    state()->navigation()->setExplorerStack(std::move(stack));
}

void ExplorerModel::goUp() {
    if (canGoUp())
        goTo(static_cast<int>(state()->navigation()->explorerStack().size()) - 2);
}

void ExplorerModel::revealCurrent() {
    if (!isEmpty())
        state()->opener().revealPath(current()->path());
}

} // namespace brimlet
