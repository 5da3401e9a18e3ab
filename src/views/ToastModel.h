// The notice over the detail column: what it says, and when it goes by itself.
#pragma once

#include "app/AppState.h"

#include <chrono>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class ToastModel : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)
    Q_PROPERTY(bool shown READ shown NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)

public:
    /// How long a notice stays.
    static constexpr std::chrono::milliseconds stay{8000};

    explicit ToastModel(QObject* parent = nullptr);

    AppState* state() const { return m_state; }
    void setState(AppState* state);

    bool shown() const { return m_state && m_state->toast().has_value(); }
    QString message() const { return m_message; } ///< kept while the notice fades away
    QString detail() const { return m_detail; }
    bool canUndo() const { return m_canUndo; }

    Q_INVOKABLE void undo();
    Q_INVOKABLE void close();

signals:
    void stateChanged();
    void changed();

private:
    void takeToast();

    QPointer<AppState> m_state;
    QString m_message;
    QString m_detail;
    bool m_canUndo = false;
};

} // namespace brimlet
