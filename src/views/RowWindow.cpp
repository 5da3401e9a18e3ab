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
        connect(m_source, &QAbstractItemModel::modelReset, this, &RowWindow::sourceReset);
        connect(m_source, &QAbstractItemModel::dataChanged, this, &RowWindow::sourceDataChanged);
    }
    emit sourceChanged();
    resetSlots();
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
    const qint64 last = std::max<qint64>(contentHeight() - m_height, 0);
    const qint64 wanted = std::clamp<qint64>(offset, 0, last);
    if (wanted == m_offset)
        return;
    m_offset = wanted;
    emit offsetChanged();
    const qint64 previousTop = std::exchange(m_topRow, m_offset / m_rowHeight);
    // Every row moved; only a slot whose row changed needs anything but its place.
    for (int slot = 0; slot < m_slots; ++slot) {
        const qint64 before = previousTop + (slot - previousTop % m_slots + m_slots) % m_slots;
        const qint64 after = m_topRow + (slot - m_topRow % m_slots + m_slots) % m_slots;
        emit dataChanged(index(slot), index(slot), before == after ? QList<int>{PositionRole} : QList<int>{});
    }
}

qint64 RowWindow::contentHeight() const {
    return sourceRows() * m_rowHeight;
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

qint64 RowWindow::rowInSlot(int slot) const {
    const qint64 row = m_topRow + (slot - m_topRow % m_slots + m_slots) % m_slots;
    return row < sourceRows() ? row : -1;
}

void RowWindow::layOut() {
    const int wanted = m_height / m_rowHeight + 2;
    if (wanted != m_slots)
        resetSlots();
    setOffset(m_offset);
    emit contentHeightChanged();
}

void RowWindow::resetSlots() {
    beginResetModel();
    m_slots = m_height / m_rowHeight + 2;
    m_topRow = m_offset / m_rowHeight;
    endResetModel();
    emit contentHeightChanged();
    setOffset(m_offset);
}

void RowWindow::sourceReset() {
    // The slots stay, each with another row: making their delegates anew would take longer than a frame.
    m_offset = std::clamp<qint64>(m_offset, 0, std::max<qint64>(contentHeight() - m_height, 0));
    m_topRow = m_offset / m_rowHeight;
    if (m_slots > 0)
        emit dataChanged(index(0), index(m_slots - 1));
    emit contentHeightChanged();
    emit offsetChanged();
}

void RowWindow::sourceDataChanged(const QModelIndex& first, const QModelIndex& last,
                                  const QList<int>& roles) {
    for (int slot = 0; slot < m_slots; ++slot) {
        const qint64 row = rowInSlot(slot);
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
    const qint64 row = rowInSlot(index.row());
    if (role == RowRole)
        return static_cast<int>(row);
    if (role == PositionRole)
        return static_cast<int>(std::max<qint64>(row, 0) * m_rowHeight - m_offset);
    return row >= 0 ? m_source->data(m_source->index(static_cast<int>(row), 0), role) : QVariant();
}

QHash<int, QByteArray> RowWindow::roleNames() const {
    QHash<int, QByteArray> names = m_source ? m_source->roleNames() : QHash<int, QByteArray>();
    names.insert(RowRole, "row");
    names.insert(PositionRole, "position");
    return names;
}

} // namespace brimlet
