#include "views/PreviewImage.h"

#include <QPainter>

namespace brimlet {

PreviewImage::PreviewImage(QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    connect(this, &PreviewImage::imageChanged, this, [this] { update(); });
}

void PreviewImage::paint(QPainter* painter) {
    if (m_image.isNull())
        return;
    const QSizeF room = size();
    QSizeF shown = m_image.size();
    if (shown.width() > room.width() || shown.height() > room.height())
        shown.scale(room, Qt::KeepAspectRatio);
    const QRectF place(QPointF((room.width() - shown.width()) / 2, (room.height() - shown.height()) / 2),
                       shown);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, m_image);
}

} // namespace brimlet
