// Finds what a tooltip should say: about the item that the pointer rests on, or about the one with the
// keyboard.
//
// An item says it by a text property named `tip`, and where it is not about all of the item by a rectangle
// named `tipPlace`; a text that is shown shortened says itself. One finder and one tooltip serve a whole
// window, so rows and cells need none of their own. Main thread.
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QRectF>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class TipFinder : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString tip READ tip NOTIFY tipChanged) ///< empty for none
    Q_PROPERTY(
        QRectF place READ place NOTIFY tipChanged) ///< what the tip is about, in this item's coordinates
    Q_PROPERTY(int delay MEMBER m_delay)           ///< milliseconds of rest before a tip shows

public:
    explicit TipFinder(QQuickItem* parent = nullptr);

    QString tip() const { return m_tip; }
    QRectF place() const { return m_place; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void tipChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private slots:
    void focusMoved();
    void currentRowMoved();
    void rested();

private:
    void watch(QQuickWindow* window);
    void pointerMoved(const QPointF& position);
    void wait();
    void show(const QString& tip, const QQuickItem* about);
    void hide() { show({}, nullptr); }

    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_focused;
    QTimer m_rest;
    QString m_tip;
    QRectF m_place;
    QPointF m_pointer;
    int m_delay = 600;
    bool m_byKeyboard = false;
};

} // namespace brimlet
