// Shows the image of a quick preview whole, centred, never larger than it is.
#pragma once

#include "views/nodes/QuickPreview.h"

#include <QQuickPaintedItem>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class PreviewImage : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(brimlet::QuickPreview* preview READ preview WRITE setPreview NOTIFY previewChanged REQUIRED)

public:
    explicit PreviewImage(QQuickItem* parent = nullptr)
        : QQuickPaintedItem(parent) {}

    QuickPreview* preview() const { return m_preview; }
    void setPreview(QuickPreview* preview);
    void paint(QPainter* painter) override;

signals:
    void previewChanged();

private:
    QPointer<QuickPreview> m_preview;
};

} // namespace brimlet
