// What could not be deleted in the last run, row by row.
#pragma once

#include "app/AppState.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class FailureModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role { path = Qt::UserRole, reason };

    explicit FailureModel(QObject* parent = nullptr);

    AppState* state() const { return m_state; }
    void setState(AppState* state);
    int count() const { return rowCount(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void stateChanged();
    void countChanged();

private:
    void readFailures();

    QPointer<AppState> m_state;
    std::vector<DeletionFailure> m_failures;
};

} // namespace brimlet
