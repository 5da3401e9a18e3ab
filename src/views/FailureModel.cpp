#include "views/FailureModel.h"

#include "app/Texts.h"
#include "core/Paths.h"

namespace brimlet {

FailureModel::FailureModel(QObject* parent)
    : QAbstractListModel(parent) {}

void FailureModel::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    if (m_state)
        connect(m_state, &AppState::failuresChanged, this, &FailureModel::readFailures);
    emit stateChanged();
    readFailures();
}

void FailureModel::readFailures() {
    beginResetModel();
    m_failures = m_state ? m_state->failures() : std::vector<DeletionFailure>();
    endResetModel();
    emit countChanged();
}

int FailureModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_failures.size());
}

QVariant FailureModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || !m_state)
        return {};
    const DeletionFailure& failure = m_failures[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
    case path:
        return shownText(displayPath(failure.path, m_state->homeFolder()));
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
