#include "views/ToastModel.h"

#include <QTimer>

namespace brimlet {

ToastModel::ToastModel(QObject* parent)
    : QObject(parent) {}

void ToastModel::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    if (m_state)
        connect(m_state, &AppState::toastChanged, this, &ToastModel::takeToast);
    emit stateChanged();
    takeToast();
}

void ToastModel::takeToast() {
    if (shown()) {
        const Toast& toast = *m_state->toast();
        m_message = QString::fromStdString(toast.message);
        m_detail = QString::fromStdString(toast.detail.value_or(""));
        m_canUndo = !toast.undoable.empty();
        QTimer::singleShot(stay, this, [this, id = toast.id] {
            if (shown() && m_state->toast()->id == id)
                close();
        });
    }
    emit changed();
}

void ToastModel::undo() {
    if (!shown())
        return;
    const std::vector<HistoryEntry> entries = m_state->toast()->undoable;
    close(); // what was restored is told by a notice of its own
    m_state->restoreEntries(entries);
}

void ToastModel::close() {
    if (m_state)
        m_state->setToast(std::nullopt);
}

} // namespace brimlet
