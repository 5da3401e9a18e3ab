#include "app/state/NoticeState.h"

#include <utility>

namespace brimlet {

void NoticeState::setToast(std::optional<Toast> toast) {
    change(m_toast, std::move(toast), &NoticeState::toastChanged);
}

void NoticeState::say(const QString& sentence) {
    Toast toast;
    toast.message = sentence.toStdString();
    setToast(std::move(toast));
}

} // namespace brimlet
