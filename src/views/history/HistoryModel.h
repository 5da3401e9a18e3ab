// What has been deleted, newest first, and what of it can be put back, as far as that is known: the disk is
// looked at in the background. Selected rows are known by their entry.
#pragma once

#include "app/state/RemovalState.h"
#include "views/base/AppStateListModel.h"

#include <set>
#include <vector>

namespace brimlet {

class HistoryModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { date = Qt::UserRole, name, place, size, method, restorable, selected };

    /// What a click or a key does to what was selected before.
    enum SelectionMode { Replace, Toggle, Extend };
    Q_ENUM(SelectionMode)

    using AppStateListModel::AppStateListModel;

    int count() const { return rowCount(); }

    Q_INVOKABLE void restore(int row);

    /// Every selected row, as far as it can be put back; says how many were.
    Q_INVOKABLE void restoreSelected();

    Q_INVOKABLE void select(int row, brimlet::HistoryModel::SelectionMode mode);
    Q_INVOKABLE void selectAll();
    Q_INVOKABLE void clearSelection();

    /// Has the disk looked at again.
    Q_INVOKABLE void lookAgain();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    const HistoryEntry& entryAt(int row) const { return m_entries[static_cast<std::size_t>(row)]; }
    bool isRow(int row) const { return row >= 0 && row < rowCount(); }
    void rolesChanged(const QList<int>& roles);
    int anchorRow() const;
    void selectRange(int from, int to);

    std::vector<HistoryEntry> m_entries;
    std::set<Uuid> m_selection;
    Uuid m_anchor{}; // of the entry from which a range extends
};

} // namespace brimlet
