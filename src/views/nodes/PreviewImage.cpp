#include "views/nodes/PreviewImage.h"

#include <QPainter>

namespace brimlet {

void PreviewImage::setPreview(QuickPreview* preview) {
    if (m_preview == preview)
        return;
    if (m_preview)
        m_preview->disconnect(this);
    m_preview = preview;
    if (m_preview)
        connect(m_preview, &QuickPreview::changed, this, [this] { update(); });
    emit previewChanged();
    update();
}

void PreviewImage::paint(QPainter* painter) {
    if (!m_preview || !m_preview->hasImage())
        return;
    const QImage& image = m_preview->image();
    const QSizeF room = size();
    QSizeF shown = image.size();
    if (shown.width() > room.width() || shown.height() > room.height())
        shown.scale(room, Qt::KeepAspectRatio);
    const QRectF place(QPointF((room.width() - shown.width()) / 2, (room.height() - shown.height()) / 2),
                       shown);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(place, image);
}

} // namespace brimlet
