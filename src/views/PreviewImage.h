// Shows an image whole, centred, never larger than it is.
#pragma once

#include <QImage>
#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class PreviewImage : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage image MEMBER m_image NOTIFY imageChanged)

public:
    explicit PreviewImage(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

signals:
    void imageChanged();

private:
    QImage m_image;
};

} // namespace brimlet
