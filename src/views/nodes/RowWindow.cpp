#include "views/nodes/RowWindow.h"

#include <algorithm>
#include <utility>

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
    m_rowOfSlot.clear();
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
    // Every row moved; only a slot whose row changed needs more than its new place.
    for (int slot = 0; slot < slotCount(); ++slot) {
        int& row = m_rowOfSlot[static_cast<std::size_t>(slot)];
        const bool sameRow = std::exchange(row, rowForSlot(slot)) == row;
        emit dataChanged(index(slot), index(slot), sameRow ? QList<int>{PositionRole} : QList<int>{});
    }
}

qint64 RowWindow::withinContent(qint64 offset) const {
    return std::clamp<qint64>(offset, 0, std::max<qint64>(heightOfAll() - m_height, 0));
}

qint64 RowWindow::topRowAtOffset() const {
    return std::clamp<qint64>(m_offset / m_rowHeight, 0, sourceRows() - slotCount());
}

void RowWindow::show(int row) {
    const qint64 top = static_cast<qint64>(row) * m_rowHeight;
    if (top < m_offset)
        setOffset(top);
    else if (top + m_rowHeight > m_offset + m_height)
        setOffset(top + m_rowHeight - m_height);
}

int RowWindow::slotOf(int row) const {
    const auto found = std::ranges::find(m_rowOfSlot, row);
    return found != m_rowOfSlot.end() ? static_cast<int>(found - m_rowOfSlot.begin()) : -1;
}

int RowWindow::rowAt(double y) const {
    const qint64 row = (m_offset + wholeNumber<int>(y)) / m_rowHeight;
    return y >= 0 && row < sourceRows() ? static_cast<int>(row) : -1;
}

qint64 RowWindow::sourceRows() const {
    return m_source ? m_source->rowCount() : 0;
}

int RowWindow::rowForSlot(int slot) const {
    const auto held = static_cast<qint64>(m_rowOfSlot.size());
    const qint64 top = topRowAtOffset();
    return static_cast<int>(top + (slot - top % held + held) % held);
}

void RowWindow::layOut() {
    m_offset = withinContent(m_offset);
    const int before = slotCount();
    const int wanted = static_cast<int>(std::min<qint64>(m_height / m_rowHeight + 2, sourceRows()));
    if (wanted > before) {
        beginInsertRows({}, before, wanted - 1);
        m_rowOfSlot.resize(static_cast<std::size_t>(wanted));
        for (int slot = before; slot < wanted; ++slot)
            m_rowOfSlot[static_cast<std::size_t>(slot)] = rowForSlot(slot);
        endInsertRows();
    } else if (wanted < before) {
        beginRemoveRows({}, wanted, before - 1);
        m_rowOfSlot.resize(static_cast<std::size_t>(wanted));
        endRemoveRows();
    }
    // The slots stay, each with another row: making their delegates anew would take longer than a frame.
    for (int slot = 0; slot < wanted; ++slot)
        m_rowOfSlot[static_cast<std::size_t>(slot)] = rowForSlot(slot);
    if (wanted > 0)
        emit dataChanged(index(0), index(wanted - 1));
    emit contentHeightChanged();
    emit offsetChanged();
}

void RowWindow::sourceDataChanged(const QModelIndex& first, const QModelIndex& last,
                                  const QList<int>& roles) {
    for (int slot = 0; slot < slotCount(); ++slot) {
        const int row = m_rowOfSlot[static_cast<std::size_t>(slot)];
        if (row >= first.row() && row <= last.row())
            emit dataChanged(index(slot), index(slot), roles);
    }
}

int RowWindow::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : slotCount();
}

QVariant RowWindow::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= slotCount() || !m_source)
        return {};
    const int row = m_rowOfSlot[static_cast<std::size_t>(index.row())];
    if (role == RowRole)
        return row;
    if (role == PositionRole)
        return static_cast<int>(static_cast<qint64>(row) * m_rowHeight - m_offset);
    return m_source->data(m_source->index(row, 0), role);
}

QHash<int, QByteArray> RowWindow::roleNames() const {
    QHash<int, QByteArray> names = m_source ? m_source->roleNames() : QHash<int, QByteArray>();
    names.insert(RowRole, "row");
    names.insert(PositionRole, "position");
    return names;
}

} // namespace brimlet
