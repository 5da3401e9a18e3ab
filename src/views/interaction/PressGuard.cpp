#include "views/interaction/PressGuard.h"

#include "views/interaction/ItemOrder.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickWindow>
#include <QStyleHints>
#include <utility>

namespace brimlet {

namespace {

/// The topmost item at a place of the scene that a press of this button goes to; null where there is none.
QQuickItem* takerOfPress(QQuickItem& item, const QPointF& scene, Qt::MouseButton button) {
    const bool inside = item.contains(item.mapFromScene(scene));
    if (!item.isVisible() || !item.isEnabled() || (item.clip() && !inside))
        return nullptr;
    for (QQuickItem* child : topmostFirst(item)) {
        if (QQuickItem* taker = takerOfPress(*child, scene, button))
            return taker;
    }
    return inside && item.acceptedMouseButtons().testFlag(button) ? &item : nullptr;
}

} // namespace

PressGuard::PressGuard(QObject* parent)
    : QObject(parent) {
    qGuiApp->installEventFilter(this);
}

bool PressGuard::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (const auto* window = qobject_cast<QQuickWindow*>(watched))
            m_holding = holdsBack(*window, *static_cast<QMouseEvent*>(event));
        return watched->isWindowType() && m_holding;
    case QEvent::MouseButtonDblClick:
        return watched->isWindowType() && m_holding;
    case QEvent::MouseButtonRelease:
        return watched->isWindowType() && std::exchange(m_holding, false);
    default:
        return false;
    }
}

bool PressGuard::holdsBack(const QQuickWindow& window, const QMouseEvent& press) {
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const Press now{&window, press.button(), press.scenePosition(), press.timestamp()};
    const bool goesOn =
        m_last && m_last->window == now.window && m_last->button == now.button &&
        now.milliseconds - m_last->milliseconds <= static_cast<quint64>(hints.mouseDoubleClickInterval()) &&
        (now.place - m_last->place).manhattanLength() <= hints.mouseDoubleClickDistance();
    m_last = now;
    QQuickItem* taker = takerOfPress(*window.contentItem(), now.place, now.button);
    if (!goesOn)
        m_meant = taker;
    return taker != m_meant;
}

} // namespace brimlet
