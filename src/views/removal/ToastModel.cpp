#include "views/removal/ToastModel.h"
#include "app/state/NoticeState.h"
#include "app/state/RemovalState.h"

#include <QTimer>

namespace brimlet {

void ToastModel::read() {
    if (shown()) {
        const Toast& toast = *state()->notice()->toast();
        m_message = QString::fromStdString(toast.message);
        m_detail = QString::fromStdString(toast.detail.value_or(""));
        m_canUndo = toast.undoable != nullptr;
        QTimer::singleShot(stay, this, [this, id = toast.id] {
            if (shown() && state()->notice()->toast()->id == id)
                close();
        });
    }
    emit changed();
}

void ToastModel::undo() {
    if (!shown() || !m_canUndo)
        return;
    const auto entries = state()->notice()->toast()->undoable;
    close(); // First: the restoring shows a notice of its own.
    state()->removal()->restoreEntries(entries);
}

void ToastModel::close() {
    if (state())
        state()->notice()->setToast(std::nullopt);
}

} // namespace brimlet
