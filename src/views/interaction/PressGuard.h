// Lets the presses of a double click, or of any quick row of them, reach only what was under the pointer at
// the first: a button that has come there meanwhile was not meant by the second. So no sheet is agreed to and
// no stage passed by a click for what stood there before. Main thread; watches all windows of the
// application.
#pragma once

#include <optional>
#include <QObject>
#include <QPointer>
#include <QPointF>

class QMouseEvent;
class QQuickItem;
class QQuickWindow;

namespace brimlet {

class PressGuard : public QObject {
public:
    explicit PressGuard(QObject* parent = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool holdsBack(const QQuickWindow& window, const QMouseEvent& press);

    struct Press {
        const QQuickWindow* window; ///< only compared
        Qt::MouseButton button;
        QPointF place;
        quint64 milliseconds;
    };

    std::optional<Press> m_last;
    QPointer<QQuickItem> m_meant; ///< what the first press was for
    bool m_holding = false;       ///< until its release
};

} // namespace brimlet
