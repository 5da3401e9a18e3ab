#include "support/WindowDriver.h"

#include "support/TestApp.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <QQuickItem>
#include <QTest>
#include <QtQuickTest/quicktest.h>
#include <utility>

namespace brimlet::test {

namespace {

/// Rounding of positions and font metrics.
constexpr qreal tolerance = 1.5;

void collect(QQuickItem* item, QList<QQuickItem*>& found) {
    if (!item->isVisible() || item->opacity() <= 0)
        return;
    const QList<QQuickItem*> children = item->childItems();
    QList<QQuickItem*> byHeight = children;
    std::stable_sort(byHeight.begin(), byHeight.end(),
                     [](const QQuickItem* left, const QQuickItem* right) { return left->z() < right->z(); });
    std::for_each(byHeight.rbegin(), byHeight.rend(), [&](QQuickItem* child) { collect(child, found); });
    found.append(item);
}

QAccessible::Role accessibleRole(const QQuickItem* item) {
    auto* asked = const_cast<QQuickItem*>(item);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(asked);
    return accessible != nullptr ? accessible->role() : QAccessible::NoRole;
}

bool isText(const QQuickItem* item) {
    return item->inherits("QQuickText");
}

QRectF sceneRect(const QQuickItem* item) {
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

/// Where the letters of a text stand, without the empty room around them.
QRectF inkRect(const QQuickItem* text) {
    const QRectF box = sceneRect(text);
    const QSizeF ink(std::min(text->property("contentWidth").toReal(), box.width()),
                     std::min(text->property("contentHeight").toReal(), box.height()));
    QRectF rect(box.topLeft(), ink);
    const int alignment = text->property("horizontalAlignment").toInt();
    if (alignment == Qt::AlignHCenter)
        rect.moveLeft(box.center().x() - ink.width() / 2);
    else if (alignment == Qt::AlignRight)
        rect.moveRight(box.right());
    rect.moveTop(box.center().y() - ink.height() / 2);
    return rect;
}

/// The part of the window that an item's clipping ancestors leave visible; what can be scrolled to counts.
bool isScrolledAway(const QQuickItem* item) {
    for (const QQuickItem* up = item->parentItem(); up != nullptr; up = up->parentItem()) {
        if (up->clip() && !sceneRect(up).intersects(sceneRect(item)))
            return true;
    }
    return false;
}

bool isFlickable(const QQuickItem* item) {
    return item->inherits("QQuickFlickable");
}

/// Whether rows without end scroll by themselves in a clipping item.
bool holdsRows(const QQuickItem* item) {
    const QList<QQuickItem*> inside = item->childItems();
    return std::any_of(inside.begin(), inside.end(), [](const QQuickItem* child) {
        return child->property("contentHeight").toReal() > child->height();
    });
}

/// All that a clipping item can show: what it can be scrolled to, or else its own area. In its coordinates.
QRectF showable(const QQuickItem* item) {
    const QRectF area(0, 0, item->width(), item->height());
    if (!isFlickable(item))
        return holdsRows(item) ? area.adjusted(0, -area.height(), 0, area.height()) : area;
    const auto value = [&](const char* name) { return item->property(name).toReal(); };
    const QRectF content(value("originX") - value("contentX"), value("originY") - value("contentY"),
                         value("contentWidth"), value("contentHeight"));
    return area | content;
}

/// Whether no scrolling brings a stretch of an item wholly into sight.
bool isOutOfReach(const QQuickItem* item, const QRectF& ink) {
    QRectF stretch = ink;
    for (const QQuickItem* up = item->parentItem(); up != nullptr; up = up->parentItem()) {
        if (!up->clip())
            continue;
        const QRectF room =
            up->mapRectToScene(showable(up)).adjusted(-tolerance, -tolerance, tolerance, tolerance);
        if (!room.contains(stretch))
            return true;
        if (isFlickable(up) || holdsRows(up))
            stretch = sceneRect(up);
    }
    return false;
}

/// Whether it stands partly beside the surface with a border that it belongs to.
bool leavesItsCard(const QQuickItem* item, const QRectF& ink) {
    for (const QQuickItem* up = item->parentItem(); up != nullptr && !isFlickable(up);
         up = up->parentItem()) {
        const auto* border = up->property("border").value<QObject*>();
        const bool surface =
            up->inherits("QQuickRectangle") && border != nullptr && border->property("width").toReal() > 0;
        if (surface && !sceneRect(up).adjusted(-tolerance, -tolerance, tolerance, tolerance).contains(ink))
            return true;
    }
    return false;
}

/// What clipping ancestors leave of a stretch.
QRectF inSight(const QQuickItem* item, QRectF stretch) {
    for (const QQuickItem* up = item->parentItem(); up != nullptr; up = up->parentItem()) {
        if (up->clip())
            stretch &= sceneRect(up);
    }
    return stretch;
}

/// Rows that a list keeps for later may stand anywhere.
bool isInList(const QQuickItem* item) {
    for (const QQuickItem* up = item->parentItem(); up != nullptr; up = up->parentItem()) {
        if (up->inherits("QQuickItemView"))
            return true;
    }
    return false;
}

bool isInFlickable(const QQuickItem* item) {
    for (const QQuickItem* up = item->parentItem(); up != nullptr; up = up->parentItem()) {
        if (isFlickable(up))
            return true;
    }
    return false;
}

/// While a sheet dims the window, only what stands above the page is to be read.
bool isAbovePage(const QQuickItem* item) {
    for (const QQuickItem* up = item; up != nullptr; up = up->parentItem()) {
        if (up->inherits("QQuickOverlay"))
            return true;
    }
    return false;
}

/// A notice lies over the page for a moment.
bool isInNotice(const QQuickItem* item) {
    for (const QQuickItem* up = item; up != nullptr; up = up->parentItem()) {
        if (accessibleRole(up) == QAccessible::AlertMessage)
            return true;
    }
    return false;
}

QString faultOf(const QQuickItem* text, const QRectF& window) {
    const QRectF box = sceneRect(text);
    const bool middle = text->property("elide").toInt() == Qt::ElideMiddle;
    const bool limited = text->property("maximumLineCount").toInt() < std::numeric_limits<int>::max();
    if (text->property("truncated").toBool() && !middle && !limited)
        return QStringLiteral("is shortened");
    if (text->property("contentHeight").toReal() > box.height() + tolerance)
        return QStringLiteral("is cut off below");
    if (text->property("contentWidth").toReal() > box.width() + tolerance)
        return QStringLiteral("is cut off at the side");
    if (!isInFlickable(text) && (box.left() < -tolerance || box.right() > window.right() + tolerance))
        return QStringLiteral("leaves the window");
    const QRectF ink = inkRect(text).adjusted(tolerance, tolerance, -tolerance, -tolerance);
    if (isOutOfReach(text, ink))
        return QStringLiteral("can't be scrolled to");
    if (leavesItsCard(text, ink))
        return QStringLiteral("leaves its card");
    if (!isInFlickable(text) && (box.top() < -tolerance || box.bottom() > window.bottom() + tolerance))
        return QStringLiteral("leaves the window");
    return {};
}

} // namespace

QString accessibleName(QQuickItem* item) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(item);
    return accessible != nullptr ? accessible->text(QAccessible::Name) : QString();
}

QList<QQuickItem*> WindowDriver::visibleItems() const {
    QList<QQuickItem*> items;
    collect(m_window.contentItem(), items);
    return items;
}

QQuickItem* WindowDriver::find(const QString& name, QAccessible::Role role) const {
    for (QQuickItem* item : visibleItems()) {
        if (accessibleName(item) == name && (role == QAccessible::NoRole || accessibleRole(item) == role))
            return item;
    }
    return nullptr;
}

QQuickItem* WindowDriver::await(const QString& name, QAccessible::Role role) {
    eventually([&] { return find(name, role) != nullptr; });
    QQuickItem* item = find(name, role);
    if (item == nullptr)
        ADD_FAILURE() << "The window doesn't show " << name.toStdString();
    return item;
}

bool WindowDriver::awaitGone(const QString& name) {
    return eventually([&] { return !shows(name); });
}

QQuickItem* WindowDriver::awaitRest(const QString& name, QAccessible::Role role) {
    if (await(name, role) == nullptr)
        return nullptr;
    // A layout that is about to change, or a sheet that still grows, moves it.
    QRectF last;
    eventually([&] {
        const QQuickItem* item = find(name, role);
        const QRectF now = item != nullptr ? sceneRect(item) : QRectF();
        return !QQuickTest::qIsPolishScheduled(&m_window) && std::exchange(last, now) == now &&
               !now.isEmpty();
    });
    return find(name, role);
}

QPoint WindowDriver::middleOf(const QString& name, QAccessible::Role role) {
    const QQuickItem* item = awaitRest(name, role);
    return item != nullptr ? sceneRect(item).center().toPoint() : QPoint();
}

bool WindowDriver::click(const QString& name, QAccessible::Role role) {
    const QPoint middle = middleOf(name, role);
    if (middle.isNull())
        return false;
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, middle);
    handleEvents();
    return true;
}

void WindowDriver::key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&m_window, key, modifiers);
    handleEvents();
}

QString WindowDriver::focused() const {
    QQuickItem* item = m_window.activeFocusItem();
    return item != nullptr ? accessibleName(item) : QString();
}

bool WindowDriver::tabTo(const QString& name, int limit) {
    for (int press = 0; press < limit && focused() != name; ++press)
        key(Qt::Key_Tab);
    return focused() == name;
}

QStringList WindowDriver::layoutFaults() const {
    // Layouts settle when a frame is drawn; what that changes may need further ones.
    for (int frame = 0; frame < 4; ++frame) {
        m_window.grabWindow();
        handleEvents();
    }
    QStringList faults;
    struct Ink {
        QString text;
        QRectF rect;
        bool inNotice;
    };
    QList<Ink> seen;
    const QRectF window(0, 0, m_window.width(), m_window.height());
    const QList<QQuickItem*> items = visibleItems();
    const bool sheet = std::any_of(items.begin(), items.end(), [](QQuickItem* item) {
        return accessibleRole(item) == QAccessible::Dialog;
    });
    for (const QQuickItem* item : items) {
        if (sheet && !isAbovePage(item))
            continue;
        const QString text = item->property("text").toString();
        if (!isText(item) || text.trimmed().isEmpty())
            continue;
        if (isScrolledAway(item)) {
            if (!isInList(item) && isOutOfReach(item, inkRect(item)))
                faults.append(QStringLiteral("“%1” can't be scrolled to").arg(text));
            continue;
        }
        if (const QString fault = faultOf(item, window); !fault.isEmpty())
            faults.append(QStringLiteral("“%1” %2").arg(text, fault));
        const QRectF ink =
            inSight(item, inkRect(item)).adjusted(tolerance, tolerance, -tolerance, -tolerance);
        const bool inNotice = isInNotice(item);
        for (const auto& other : seen) {
            if (other.rect.intersects(ink) && other.inNotice == inNotice)
                faults.append(QStringLiteral("“%1” lies over “%2”").arg(other.text, text));
        }
        if (!ink.isEmpty())
            seen.append({text, ink, inNotice});
    }
    return faults;
}

} // namespace brimlet::test
