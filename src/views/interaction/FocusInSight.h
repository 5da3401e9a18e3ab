// Keeps the item with the keyboard in sight: whatever around it scrolls, scrolls to it.
//
// One stands in each window and serves all of its pages, sheets, lists and rows of tiles. Where a list has
// the keyboard, its current row is what has to be seen. A focus that a press of the pointer gives moves
// nothing, or the release would miss what was pressed. Main thread.
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class FocusInSight : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(double margin MEMBER m_margin) ///< kept free around the item where there is room for it

public:
    explicit FocusInSight(QQuickItem* parent = nullptr)
        : QQuickItem(parent) {}

    /// Looks again once the next frame is laid out, for changes that move everything.
    Q_INVOKABLE void lookAgain();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

private slots:
    void focusMoved();
    void currentRowMoved();
    void frameLaidOut();

private:
    void watch(QQuickWindow* window);
    void reveal() const;

    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_focused;
    double m_margin = 0;
    bool m_lookAgain = false;
};

/// What the keyboard acts on within a window: the current row of a list that has the focus, else the item
/// with the focus. Null where nothing has it.
QQuickItem* keyboardPlace(const QQuickWindow& window);

/// Calls `slot` of `receiver` whenever the current row of `list` changes; nothing where it has none.
void followCurrentRow(QQuickItem* list, QObject* receiver, const char* slot);

} // namespace brimlet
