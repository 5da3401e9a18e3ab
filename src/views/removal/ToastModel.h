// The notice over the detail column: what it says, and when it goes by itself.
#pragma once

#include "app/state/NoticeState.h"
#include "views/base/AppStateReader.h"

#include <chrono>
#include <QString>

namespace brimlet {

class ToastModel : public brimlet::AppStateReader { // spelt out for the QML tools
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool shown READ shown NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY changed)

public:
    /// How long a notice stays.
    static constexpr std::chrono::milliseconds stay{8000};

    bool shown() const { return state() && state()->notice()->toast().has_value(); }
    QString message() const { return m_message; } ///< kept while the notice fades away
    QString detail() const { return m_detail; }
    bool canUndo() const { return m_canUndo; }

    Q_INVOKABLE void undo();
    Q_INVOKABLE void close();

protected:
    void watch(AppState& state) override {
        connect(state.notice(), &NoticeState::toastChanged, this, &ToastModel::read);
    }
    void read() override;

private:
    QString m_message;
    QString m_detail;
    bool m_canUndo = false;
};

} // namespace brimlet
