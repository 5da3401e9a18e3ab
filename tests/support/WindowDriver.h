// Acts on a window as its user does: finds controls by accessible name, clicks and types, and looks for texts
// that don't fit. Main thread.
#pragma once

#include <functional>
#include <QAccessible>
#include <QQuickWindow>
#include <QString>
#include <QStringList>

namespace brimlet::test {

class WindowDriver {
public:
    explicit WindowDriver(QQuickWindow& window)
        : m_window(window) {}

    /// The topmost visible item with an accessible name, and a role if one is given; null where there is
    /// none.
    QQuickItem* find(const QString& name, QAccessible::Role role = QAccessible::NoRole) const;

    /// Waits until it is there. Adds a test failure and returns null where it doesn't come.
    QQuickItem* await(const QString& name, QAccessible::Role role = QAccessible::NoRole);

    /// As `await`, and until it keeps its place.
    QQuickItem* awaitRest(const QString& name, QAccessible::Role role = QAccessible::NoRole);

    bool shows(const QString& name) const { return find(name) != nullptr; }

    /// Waits until nothing of this name is visible.
    bool awaitGone(const QString& name);

    /// Where the middle of a control is in the window once it stands still. Adds a test failure and returns
    /// null where there is none.
    QPoint middleOf(const QString& name, QAccessible::Role role = QAccessible::NoRole);

    /// Clicks the middle of a control with the left button once it stands still. False where there is none.
    bool click(const QString& name, QAccessible::Role role = QAccessible::NoRole);

    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// The accessible name of the item that has the keyboard.
    QString focused() const;

    /// Whether `name` gets the keyboard within `limit` presses of Tab.
    bool tabTo(const QString& name, int limit = 40);

    /// Texts that are cut off, leave the window or lie over each other, one line each.
    QStringList layoutFaults() const;

    /// All visible items, topmost first.
    QList<QQuickItem*> visibleItems() const;

private:
    QQuickWindow& m_window;
};

/// The accessible name of an item; empty where it has none.
QString accessibleName(QQuickItem* item);

} // namespace brimlet::test
