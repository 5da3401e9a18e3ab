// The few rows of a long table that are in sight, each in a slot of its own.
//
// Scrolling hands the slot of a row that leaves to one that enters; the others keep theirs. Positions are
// whole numbers of pixels in 64 bits, so a table may be longer than a view's 32-bit floats can tell apart.
// Main thread.
#pragma once

#include "core/WholeNumber.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace brimlet {

class RowWindow : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QAbstractItemModel* source READ source WRITE setSource NOTIFY sourceChanged REQUIRED)
    Q_PROPERTY(int rowHeight READ rowHeight WRITE setRowHeight NOTIFY layoutEdited)
    Q_PROPERTY(int height READ height WRITE setHeight NOTIFY layoutEdited) ///< of the view
    Q_PROPERTY(double offset READ offset WRITE setOffsetValue NOTIFY offsetChanged)
    Q_PROPERTY(double contentHeight READ contentHeight NOTIFY contentHeightChanged)

public:
    enum Role { RowRole = Qt::UserRole - 2, PositionRole };

    explicit RowWindow(QObject* parent = nullptr);

    QAbstractItemModel* source() const { return m_source; }
    void setSource(QAbstractItemModel* source);
    int rowHeight() const { return m_rowHeight; }
    void setRowHeight(int height);
    int height() const { return m_height; }
    void setHeight(int height);
    double offset() const { return static_cast<double>(m_offset); }
    void setOffset(qint64 offset); ///< brought within the content
    void setOffsetValue(double offset) { setOffset(wholeNumber<qint64>(offset)); }
    double contentHeight() const { return static_cast<double>(heightOfAll()); }

    /// Scrolls as little as brings a row into sight.
    Q_INVOKABLE void show(int row);
    /// The slot of a row; -1 where it is out of sight.
    Q_INVOKABLE int slotOf(int row) const;
    /// The row at a height within the view; -1 below the last.
    Q_INVOKABLE int rowAt(double y) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void sourceChanged();
    void layoutEdited();
    void offsetChanged();
    void contentHeightChanged();

private:
    qint64 sourceRows() const;
    qint64 heightOfAll() const { return sourceRows() * m_rowHeight; }
    qint64 withinContent(qint64 offset) const;
    qint64 topRowAtOffset() const; ///< so that every slot has a row
    int slotCount() const { return static_cast<int>(m_rowOfSlot.size()); }
    int rowForSlot(int slot) const;
    void layOut();
    void sourceDataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles);

    QPointer<QAbstractItemModel> m_source;
    int m_rowHeight = 1;
    int m_height = 0;
    qint64 m_offset = 0;
    std::vector<int> m_rowOfSlot;
};

} // namespace brimlet
