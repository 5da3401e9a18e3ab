#include "views/history/FailureModel.h"

#include "app/state/RemovalState.h"
#include "app/Texts.h"
#include "core/Paths.h"

namespace brimlet {

void FailureModel::watch(AppState& state) {
    connect(state.removal(), &RemovalState::failuresChanged, this, &FailureModel::read);
}

void FailureModel::read() {
    replaceRows(m_failures, state()->removal()->failures(), &DeletionFailure::id);
    emit countChanged();
}

int FailureModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_failures.size());
}

QVariant FailureModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !state())
        return {};
    const DeletionFailure& failure = m_failures[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case path:
        return shownText(displayPath(failure.path, state()->homeFolder()));
    case reason:
        return shownText(failure.reason);
    default:
        return {};
    }
}

QHash<int, QByteArray> FailureModel::roleNames() const {
    return {{path, "path"}, {reason, "reason"}};
}

} // namespace brimlet
