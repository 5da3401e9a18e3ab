// The base of the lists behind the screens: knows the AppState that QML gives it, and reads its rows from it.
#pragma once

#include "views/base/AppStateLink.h"
#include "views/base/RowChanges.h"

#include <functional>
#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <type_traits>
#include <vector>

namespace brimlet {

class AppStateListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)

public:
    using QAbstractListModel::QAbstractListModel;

    AppState* state() const { return m_link.state(); }
    void setState(AppState* state) { m_link.replace(state, *this); }

signals:
    void stateChanged();

protected:
    /// Connects to what the rows come from. Called once for each state, followed by `read`.
    virtual void watch(AppState& state) = 0;

    /// Takes over the rows, and announces them. Called with a state only.
    virtual void read() = 0;

    /// Takes over other rows, told as removals, insertions and changed rows.
    /// key  from a row to what it stands for, unique within the list
    template <typename Row, typename KeyOf>
    void replaceRows(std::vector<Row>& rows, std::vector<Row> now, const KeyOf& key) {
        const RowChanges changes = rowChanges(keysOf(rows, key), keysOf(now, key));
        for (const RowRun& run : changes.removed) {
            beginRemoveRows({}, run.first, run.last);
            rows.erase(rows.begin() + run.first, rows.begin() + run.last + 1);
            endRemoveRows();
        }
        for (const RowRun& run : changes.inserted) {
            beginInsertRows({}, run.first, run.last);
            rows.insert(rows.begin() + run.first, now.begin() + run.first, now.begin() + run.last + 1);
            endInsertRows();
        }
        rows = std::move(now);
        if (!rows.empty())
            emit dataChanged(index(0), index(rowCount() - 1));
    }

private:
    template <typename Row, typename KeyOf>
    static auto keysOf(const std::vector<Row>& rows, const KeyOf& key) {
        std::vector<std::decay_t<std::invoke_result_t<KeyOf, const Row&>>> keys;
        keys.reserve(rows.size());
        for (const Row& row : rows)
            keys.push_back(std::invoke(key, row));
        return keys;
    }

    friend class AppStateLink;

    AppStateLink m_link;
};

} // namespace brimlet
