#include "views/components/RingArc.h"

#include "core/WholeNumber.h"

#include <algorithm>
#include <cmath>
#include <QConicalGradient>
#include <QPainter>

namespace brimlet {

RingArc::RingArc(QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &RingArc::changed, this, [this] { update(); });
}

void RingArc::paint(QPainter* painter) {
    const qreal side = std::min(width(), height());
    if (side <= m_thickness || m_span <= 0)
        return;
    const QRectF square((width() - side) / 2, (height() - side) / 2, side, side);
    const QRectF line = square.adjusted(m_thickness / 2, m_thickness / 2, -m_thickness / 2, -m_thickness / 2);

    // Qt's angles run counter-clockwise from three o'clock. The gradient begins a little before the arc, so
    // that the round end has the colour of its own side.
    constexpr qreal capShare = 0.04;
    const qreal startDegrees = 90 - m_from * 360;
    QConicalGradient gradient(square.center(), startDegrees + capShare * 360);
    gradient.setColorAt(0, m_color);
    gradient.setColorAt(1 - std::min<qreal>(1, m_span + 2 * capShare), m_endColor);
    gradient.setColorAt(1, m_color);

    QPen pen(m_color == m_endColor ? QBrush(m_color) : QBrush(gradient), m_thickness);
    pen.setCapStyle(m_span < 1 ? Qt::RoundCap : Qt::FlatCap);
    painter->setPen(pen);
    painter->drawArc(line, wholeNumber<int>(std::round(startDegrees * 16)),
                     wholeNumber<int>(std::round(-m_span * 360 * 16)));
}

} // namespace brimlet
