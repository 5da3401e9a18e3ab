#include "views/interaction/FocusInSight.h"

#include <algorithm>
#include <QGuiApplication>
#include <QMetaProperty>
#include <QQuickWindow>

namespace brimlet {

namespace {

constexpr auto currentRow = "currentItem";

/// Where a view of `length` begins so that a stretch is in it, as near to `start` as can be.
double startShowing(double start, double length, double from, double to) {
    const bool longer = to - from > length;
    if (longer && from <= start && start + length <= to)
        return start;
    if (longer || from < start)
        return from;
    return std::max(start, to - length);
}

struct Axis {
    const char* position;
    const char* origin;
    const char* content;
    const char* marginBefore;
    const char* marginAfter;
};
constexpr Axis across = {"contentX", "originX", "contentWidth", "leftMargin", "rightMargin"};
constexpr Axis down = {"contentY", "originY", "contentHeight", "topMargin", "bottomMargin"};

void scroll(QQuickItem& view, const Axis& axis, double length, double from, double to) {
    const auto value = [&](const char* name) { return view.property(name).toDouble(); };
    const double first = value(axis.origin) - value(axis.marginBefore);
    const double last = value(axis.origin) + value(axis.content) + value(axis.marginAfter) - length;
    const double start = value(axis.position);
    const double wanted = std::max(first, std::min(last, startShowing(start, length, from, to)));
    if (wanted != start)
        view.setProperty(axis.position, wanted);
}

void bringIntoSight(QQuickItem& view, const QQuickItem& item, double margin) {
    auto* content = view.property("contentItem").value<QQuickItem*>();
    if (content == nullptr)
        return;
    const QRectF place = item.mapRectToItem(content, QRectF(0, 0, item.width(), item.height()));
    // A margin that leaves no room for the item itself is none.
    const double marginX = std::clamp((view.width() - place.width()) / 2, 0.0, margin);
    const double marginY = std::clamp((view.height() - place.height()) / 2, 0.0, margin);
    scroll(view, across, view.width(), place.left() - marginX, place.right() + marginX);
    scroll(view, down, view.height(), place.top() - marginY, place.bottom() + marginY);
}

} // namespace

QQuickItem* keyboardPlace(const QQuickWindow& window) {
    QQuickItem* focused = window.activeFocusItem();
    auto* row = focused != nullptr ? focused->property(currentRow).value<QQuickItem*>() : nullptr;
    return row != nullptr ? row : focused;
}

void followCurrentRow(QQuickItem* list, QObject* receiver, const char* slot) {
    const int index = list->metaObject()->indexOfProperty(currentRow);
    if (index < 0)
        return;
    const QMetaMethod changed = list->metaObject()->property(index).notifySignal();
    const QMetaMethod called = receiver->metaObject()->method(receiver->metaObject()->indexOfMethod(slot));
    if (changed.isValid() && called.isValid())
        QObject::connect(list, changed, receiver, called, Qt::UniqueConnection);
}

void FocusInSight::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange)
        watch(data.window);
    QQuickItem::itemChange(change, data);
}

void FocusInSight::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    lookAgain();
}

void FocusInSight::watch(QQuickWindow* window) {
    if (m_window)
        m_window->disconnect(this);
    m_window = window;
    if (window == nullptr)
        return;
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &FocusInSight::focusMoved);
    connect(window, &QQuickWindow::afterAnimating, this, &FocusInSight::frameLaidOut);
}

void FocusInSight::lookAgain() {
    m_lookAgain = true;
    update();
}

void FocusInSight::focusMoved() {
    if (m_focused)
        m_focused->disconnect(this);
    m_focused = m_window ? m_window->activeFocusItem() : nullptr;
    if (m_focused)
        followCurrentRow(m_focused, this, "currentRowMoved()");
    currentRowMoved();
}

void FocusInSight::currentRowMoved() {
    if (!m_focused || QGuiApplication::mouseButtons() != Qt::NoButton)
        return;
    reveal();
    // A screen that has just come lays itself out only for its first frame.
    lookAgain();
}

void FocusInSight::frameLaidOut() {
    if (m_lookAgain) {
        m_lookAgain = false;
        reveal();
    }
}

void FocusInSight::reveal() const {
    const QQuickItem* place = m_window ? keyboardPlace(*m_window) : nullptr;
    if (place == nullptr)
        return;
    for (QQuickItem* up = place->parentItem(); up != nullptr; up = up->parentItem()) {
        if (up->inherits("QQuickFlickable"))
            bringIntoSight(*up, *place, m_margin);
    }
}

} // namespace brimlet
