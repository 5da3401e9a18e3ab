// What could not be deleted in the last run, row by row.
#pragma once

#include "app/state/RemovalState.h"
#include "views/base/AppStateListModel.h"

namespace brimlet {

class FailureModel : public brimlet::AppStateListModel { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { path = Qt::UserRole, reason };

    using AppStateListModel::AppStateListModel;

    int count() const { return rowCount(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

protected:
    void watch(AppState& state) override;
    void read() override;

private:
    std::vector<DeletionFailure> m_failures;
};

} // namespace brimlet
