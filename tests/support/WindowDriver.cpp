#include "support/WindowDriver.h"

#include "support/TestApp.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <QQuickItem>
#include <QTest>

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

QAccessible::Role accessibleRole(QQuickItem* item) {
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(item);
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

bool isInFlickable(const QQuickItem* item) {
    for (const QQuickItem* up = item->parentItem(); up != nullptr; up = up->parentItem()) {
        if (up->inherits("QQuickFlickable"))
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

QString faultOf(const QQuickItem* text, const QRectF& window) {
    const QRectF box = sceneRect(text);
    const bool middle = text->property("elide").toInt() == Qt::ElideMiddle;
    if (text->property("truncated").toBool() && !middle)
        return QStringLiteral("is shortened");
    if (text->property("contentHeight").toReal() > box.height() + tolerance)
        return QStringLiteral("is cut off below");
    if (text->property("contentWidth").toReal() > box.width() + tolerance)
        return QStringLiteral("is cut off at the side");
    if (box.left() < -tolerance || box.right() > window.right() + tolerance)
        return QStringLiteral("leaves the window");
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

bool WindowDriver::click(const QString& name, QAccessible::Role role) {
    const QQuickItem* item = await(name, role);
    if (item == nullptr)
        return false;
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, sceneRect(item).center().toPoint());
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
    // Layouts settle when a frame is drawn; what that changes may need a second one.
    for (int frame = 0; frame < 2; ++frame)
        m_window.grabWindow();
    QStringList faults;
    QList<std::pair<QString, QRectF>> seen;
    const QRectF window(0, 0, m_window.width(), m_window.height());
    const QList<QQuickItem*> items = visibleItems();
    const bool sheet = std::any_of(items.begin(), items.end(), [](QQuickItem* item) {
        return accessibleRole(item) == QAccessible::Dialog;
    });
    for (const QQuickItem* item : items) {
        if (sheet && !isAbovePage(item))
            continue;
        const QString text = item->property("text").toString();
        if (!isText(item) || text.trimmed().isEmpty() || isScrolledAway(item))
            continue;
        if (const QString fault = faultOf(item, window); !fault.isEmpty())
            faults.append(QStringLiteral("“%1” %2").arg(text, fault));
        const QRectF ink = inkRect(item).adjusted(tolerance, tolerance, -tolerance, -tolerance);
        for (const auto& [other, rect] : seen) {
            if (rect.intersects(ink))
                faults.append(QStringLiteral("“%1” lies over “%2”").arg(other, text));
        }
        seen.append({text, ink});
    }
    return faults;
}

} // namespace brimlet::test
