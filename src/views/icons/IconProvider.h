// Draws the symbols of the icon table in any colour and size: image://icon/<symbol>?<colour as #aarrggbb>.
#pragma once

#include <QQuickImageProvider>

namespace brimlet {

class IconProvider final : public QQuickImageProvider {
public:
    IconProvider()
        : QQuickImageProvider(Image) {}

    /// An unknown symbol gives a null image and one line in the log.
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace brimlet
