// The order in which items lie over each other.
#pragma once

#include <algorithm>
#include <QList>
#include <QQuickItem>

namespace brimlet {

/// The children of an item, the one that is drawn last first.
inline QList<QQuickItem*> topmostFirst(const QQuickItem& item) {
    QList<QQuickItem*> children = item.childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem* left, const QQuickItem* right) { return left->z() < right->z(); });
    std::reverse(children.begin(), children.end());
    return children;
}

} // namespace brimlet
