// An arc with round ends, blending from one colour to another: the rings of the window.
#pragma once

#include <QColor>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class RingArc : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(qreal thickness MEMBER m_thickness NOTIFY changed)
    Q_PROPERTY(qreal from MEMBER m_from NOTIFY changed) ///< fraction of a turn, clockwise from the top
    Q_PROPERTY(qreal span MEMBER m_span NOTIFY changed) ///< fraction of a turn
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY changed)
    Q_PROPERTY(QColor endColor MEMBER m_endColor NOTIFY changed)

public:
    explicit RingArc(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

signals:
    void changed();

private:
    qreal m_thickness = 8;
    qreal m_from = 0;
    qreal m_span = 1;
    QColor m_color = Qt::black;
    QColor m_endColor = Qt::black;
};

} // namespace brimlet
