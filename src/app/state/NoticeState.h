// The notice at the window's foot: what was done, and the way back. Main thread.
#pragma once

#include "app/state/StatePart.h"
#include "app/state/Toast.h"

#include <optional>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class NoticeState : public StatePart {
    Q_OBJECT
    QML_ANONYMOUS

public:
    const std::optional<Toast>& toast() const { return m_toast; }
    void setToast(std::optional<Toast> toast);

    /// Shows one sentence.
    void say(const QString& sentence);

signals:
    void toastChanged();

private:
    std::optional<Toast> m_toast;
};

} // namespace brimlet
