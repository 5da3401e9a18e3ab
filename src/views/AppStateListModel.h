// The base of the lists behind the screens: knows the AppState that QML gives it, and reads its rows from it.
#pragma once

#include "app/AppState.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class AppStateListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)

public:
    using QAbstractListModel::QAbstractListModel;

    AppState* state() const { return m_state; }
    void setState(AppState* state);

signals:
    void stateChanged();

protected:
    /// Connects to what the rows come from. Called once for each state, followed by `read`.
    virtual void watch(AppState& state) = 0;

    /// Takes over the rows, and announces them. Called with a state only.
    virtual void read() = 0;

private:
    QPointer<AppState> m_state;
};

} // namespace brimlet
