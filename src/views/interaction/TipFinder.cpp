#include "views/interaction/TipFinder.h"

#include "views/interaction/FocusInSight.h"
#include "views/interaction/ItemOrder.h"

#include <QMouseEvent>
#include <QQuickWindow>
#include <QStringList>

namespace brimlet {

namespace {

constexpr auto tipProperty = "tip";

bool isText(const QQuickItem& item) {
    return item.inherits("QQuickText");
}

bool isShown(const QQuickItem& item) {
    return item.isVisible() && item.opacity() > 0;
}

/// What an item itself has to say.
QString ownTip(const QQuickItem& item) {
    if (QString tip = item.property(tipProperty).toString(); !tip.isEmpty())
        return tip;
    const bool shortened = isText(item) && item.property("truncated").toBool();
    return shortened ? item.property("text").toString() : QString();
}

/// The innermost item at a place of the scene that has something to say. What an item says by itself goes
/// before the shortened texts in it.
const QQuickItem* speakerAt(const QQuickItem& item, const QPointF& scene) {
    const bool inside = item.contains(item.mapFromScene(scene));
    if (!isShown(item) || (item.clip() && !inside))
        return nullptr;
    const bool explained = inside && !item.property(tipProperty).toString().isEmpty();
    for (const QQuickItem* child : topmostFirst(item)) {
        const QQuickItem* found = speakerAt(*child, scene);
        if (found != nullptr)
            return explained && isText(*found) ? &item : found;
        // Behind a sheet nothing is to be read.
        if (child->inherits("QQuickOverlay") && child->isVisible())
            return nullptr;
    }
    return inside && !ownTip(item).isEmpty() ? &item : nullptr;
}

/// Shortened texts within an item that says something itself add nothing.
void collectTips(const QQuickItem& item, QStringList& tips, bool explained = false) {
    if (!isShown(item))
        return;
    QString tip = ownTip(item);
    if (!tip.isEmpty() && !(explained && isText(item)))
        tips.append(tip);
    for (const QQuickItem* child : item.childItems())
        collectTips(*child, tips, explained || !tip.isEmpty());
}

/// What the item with the keyboard has to say: its own tip, else all that its parts have.
QString keyboardTip(const QQuickItem& item) {
    if (QString tip = ownTip(item); !tip.isEmpty())
        return tip;
    // A page or a scope is no one thing that could be explained.
    if (item.isFocusScope() || item.inherits("QQuickFlickable"))
        return {};
    QStringList tips;
    collectTips(item, tips);
    tips.removeDuplicates();
    return tips.join(QLatin1Char('\n'));
}

} // namespace

TipFinder::TipFinder(QQuickItem* parent)
    : QQuickItem(parent) {
    m_rest.setSingleShot(true);
    connect(&m_rest, &QTimer::timeout, this, &TipFinder::rested);
}

void TipFinder::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange)
        watch(data.window);
    QQuickItem::itemChange(change, data);
}

void TipFinder::watch(QQuickWindow* window) {
    if (m_window) {
        m_window->removeEventFilter(this);
        m_window->disconnect(this);
    }
    m_window = window;
    if (window == nullptr)
        return;
    window->installEventFilter(this);
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &TipFinder::focusMoved);
}

bool TipFinder::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseMove:
        pointerMoved(static_cast<QMouseEvent*>(event)->position());
        break;
    case QEvent::KeyPress:
        m_byKeyboard = true;
        [[fallthrough]];
    case QEvent::Wheel:
    case QEvent::Leave:
    case QEvent::WindowDeactivate:
        m_rest.stop();
        hide();
        break;
    case QEvent::MouseButtonPress:
        m_byKeyboard = false;
        m_rest.stop();
        hide();
        break;
    default:
        break;
    }
    return QQuickItem::eventFilter(watched, event);
}

void TipFinder::pointerMoved(const QPointF& position) {
    if (position == m_pointer)
        return;
    m_pointer = position;
    m_byKeyboard = false;
    if (!m_tip.isEmpty() && m_place.contains(mapFromScene(position)))
        return;
    hide();
    wait();
}

void TipFinder::wait() {
    m_rest.start(m_delay);
}

void TipFinder::focusMoved() {
    if (m_focused)
        m_focused->disconnect(this);
    m_focused = m_window ? m_window->activeFocusItem() : nullptr;
    if (m_focused)
        followCurrentRow(m_focused, this, "currentRowMoved()");
    currentRowMoved();
}

void TipFinder::currentRowMoved() {
    if (!m_byKeyboard)
        return;
    hide();
    wait();
}

void TipFinder::rested() {
    if (!m_window)
        return;
    if (m_byKeyboard) {
        const QQuickItem* place = keyboardPlace(*m_window);
        if (place != nullptr)
            show(keyboardTip(*place), place);
    } else if (const QQuickItem* speaker = speakerAt(*m_window->contentItem(), m_pointer)) {
        show(ownTip(*speaker), speaker);
    }
}

void TipFinder::show(const QString& tip, const QQuickItem* about) {
    if (tip.isEmpty() && m_tip.isEmpty())
        return;
    m_tip = tip;
    if (about != nullptr) {
        const QVariant part = about->property("tipPlace");
        const QRectF whole(0, 0, about->width(), about->height());
        m_place = mapRectFromItem(about, part.isValid() ? part.toRectF() : whole);
    }
    emit tipChanged();
}

} // namespace brimlet
