#include "views/RowWindow.h"

#include <algorithm>

namespace brimlet {

RowWindow::RowWindow(QObject* parent)
    : QAbstractListModel(parent) {}

void RowWindow::setSource(QAbstractItemModel* source) {
    if (m_source == source)
        return;
    if (m_source)
        m_source->disconnect(this);
    m_source = source;
    if (m_source) {
        connect(m_source, &QAbstractItemModel::modelReset, this, &RowWindow::layOut);
        connect(m_source, &QAbstractItemModel::dataChanged, this, &RowWindow::sourceDataChanged);
    }
    emit sourceChanged();
    // Another source has other roles.
    beginResetModel();
    m_slots = 0;
    endResetModel();
    layOut();
}

void RowWindow::setRowHeight(int height) {
    if (m_rowHeight == height || height < 1)
        return;
    m_rowHeight = height;
    emit layoutEdited();
    layOut();
}

void RowWindow::setHeight(int height) {
    if (m_height == height)
        return;
    m_height = height;
    emit layoutEdited();
    layOut();
}

void RowWindow::setOffset(qint64 offset) {
    const qint64 wanted = withinContent(offset);
    if (wanted == m_offset)
        return;
    m_offset = wanted;
    emit offsetChanged();
    const qint64 previousTop = std::exchange(m_topRow, topRowAtOffset());
    // Every row moved; only a slot whose row changed needs more than its new place.
    for (int slot = 0; slot < m_slots; ++slot) {
        const bool sameRow = rowInSlot(slot, previousTop) == rowInSlot(slot, m_topRow);
        emit dataChanged(index(slot), index(slot), sameRow ? QList<int>{PositionRole} : QList<int>{});
    }
}

qint64 RowWindow::withinContent(qint64 offset) const {
    return std::clamp<qint64>(offset, 0, std::max<qint64>(heightOfAll() - m_height, 0));
}

qint64 RowWindow::topRowAtOffset() const {
    return std::clamp<qint64>(m_offset / m_rowHeight, 0, sourceRows() - m_slots);
}

void RowWindow::show(int row) {
    const qint64 top = static_cast<qint64>(row) * m_rowHeight;
    if (top < m_offset)
        setOffset(top);
    else if (top + m_rowHeight > m_offset + m_height)
        setOffset(top + m_rowHeight - m_height);
}

int RowWindow::rowAt(double y) const {
    const qint64 row = (m_offset + static_cast<qint64>(y)) / m_rowHeight;
    return y >= 0 && row < sourceRows() ? static_cast<int>(row) : -1;
}

qint64 RowWindow::sourceRows() const {
    return m_source ? m_source->rowCount() : 0;
}

qint64 RowWindow::rowInSlot(int slot, qint64 topRow) const {
    return topRow + (slot - topRow % m_slots + m_slots) % m_slots;
}

void RowWindow::layOut() {
    const int wanted = static_cast<int>(std::min<qint64>(m_height / m_rowHeight + 2, sourceRows()));
    if (wanted > m_slots) {
        beginInsertRows({}, m_slots, wanted - 1);
        m_slots = wanted;
        m_topRow = topRowAtOffset();
        endInsertRows();
    } else if (wanted < m_slots) {
        beginRemoveRows({}, wanted, m_slots - 1);
        m_slots = wanted;
        m_topRow = topRowAtOffset();
        endRemoveRows();
    }
    m_offset = withinContent(m_offset);
    m_topRow = topRowAtOffset();
    // The slots stay, each with another row: making their delegates anew would take longer than a frame.
    if (m_slots > 0)
        emit dataChanged(index(0), index(m_slots - 1));
    emit contentHeightChanged();
    emit offsetChanged();
}

void RowWindow::sourceDataChanged(const QModelIndex& first, const QModelIndex& last,
                                  const QList<int>& roles) {
    for (int slot = 0; slot < m_slots; ++slot) {
        const qint64 row = rowInSlot(slot, m_topRow);
        if (row >= first.row() && row <= last.row())
            emit dataChanged(index(slot), index(slot), roles);
    }
}

int RowWindow::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_slots;
}

QVariant RowWindow::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= m_slots || !m_source)
        return {};
    const qint64 row = rowInSlot(index.row(), m_topRow);
    if (role == RowRole)
        return static_cast<int>(row);
    if (role == PositionRole)
        return static_cast<int>(row * m_rowHeight - m_offset);
    return m_source->data(m_source->index(static_cast<int>(row), 0), role);
}

QHash<int, QByteArray> RowWindow::roleNames() const {
    QHash<int, QByteArray> names = m_source ? m_source->roleNames() : QHash<int, QByteArray>();
    names.insert(RowRole, "row");
    names.insert(PositionRole, "position");
    return names;
}

} // namespace brimlet
