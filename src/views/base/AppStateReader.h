// The base of the models behind the screens: knows the AppState that QML gives it, and reads it when told.
#pragma once

#include "views/base/AppStateLink.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class AppStateReader : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)

public:
    using QObject::QObject;

    AppState* state() const { return m_link.state(); }
    void setState(AppState* state) { m_link.replace(state, *this); }

signals:
    void stateChanged();
    void changed(); ///< what the model shows

protected:
    /// Connects to what the model reads. Called once for each state, followed by `read`.
    virtual void watch(AppState& state) = 0;

    /// Takes over what the model shows, and announces it. Called with a state only.
    virtual void read() { emit changed(); }

private:
    friend class AppStateLink;

    AppStateLink m_link;
};

} // namespace brimlet
