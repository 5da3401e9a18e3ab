#include "views/nodes/NodeActions.h"

#include "app/state/NavigationState.h"
#include "app/state/PreferencesState.h"
#include "app/state/RemovalState.h"
#include "app/state/ScanState.h"
#include "app/Texts.h"
#include "core/Paths.h"
#include "platform/SystemOpener.h"
#include "views/nodes/NodeLook.h"

#include <QClipboard>
#include <QGuiApplication>

namespace brimlet {

void NodeActions::watch(AppState& state) {
    connect(state.scan(), &ScanState::revisionChanged, this, &NodeActions::read);
}

/// What was taken from a tree that has been replaced is no longer what the user sees.
void NodeActions::read() {
    if (m_choice.scan() && m_choice.scan() != state()->scan()->scan())
        take({});
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

void NodeActions::take(NodeChoice choice) {
    m_choice = std::move(choice);
    emit changed();
}

void NodeActions::takeSelected(NodeTableModel* table) {
    take(table->choice());
}

void NodeActions::reveal() {
    if (first() != nullptr)
        state()->opener().revealPath(first()->path());
}

void NodeActions::open() {
    if (first() != nullptr)
        state()->opener().openPath(first()->path());
}

void NodeActions::openInExplorer() {
    if (first() == nullptr)
        return;
    state()->navigation()->setExplorerStack(explorerStackFor(*first()));
    state()->navigation()->setSection(AppSection::explorer);
}

void NodeActions::copyPath() {
    if (first() != nullptr)
        QGuiApplication::clipboard()->setText(shownText(normalisedPath(first()->path())));
}

void NodeActions::excludeFromScans() {
    if (first() != nullptr)
        state()->preferences()->excludeFolder(first()->path());
}

void NodeActions::remove() {
    if (first() == nullptr)
        return;
    PlanDraft draft{tr("Delete Items").toStdString(), count(), m_choice.totalSize(), {}};
    draft.items = [choice = m_choice, &review = state()->review()](const std::stop_token& stop) {
        return choice.planItems(review, stop);
    };
    state()->removal()->proposePlan(std::move(draft));
}

} // namespace brimlet
