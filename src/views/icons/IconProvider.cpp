#include "views/icons/IconProvider.h"

#include <QColor>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <QUrl>

namespace brimlet {

namespace {
constexpr QSize usualSize(16, 16);
}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const qsizetype mark = id.indexOf(QLatin1Char('?'));
    const QColor color(QUrl::fromPercentEncoding(id.mid(mark + 1).toLatin1()));
    QFile file(QStringLiteral(":/icons/") + id.left(mark) + QStringLiteral(".svg"));
    if (mark < 0 || !color.isValid() || !file.open(QIODevice::ReadOnly)) {
        qWarning("There is no icon for %s", qPrintable(id));
        return {};
    }
    QSvgRenderer renderer(file.readAll().replace("currentColor", color.name(QColor::HexRgb).toLatin1()));
    const QSize drawn = requestedSize.isValid() && !requestedSize.isEmpty() ? requestedSize : usualSize;
    QImage image(drawn, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setOpacity(color.alphaF());
    renderer.render(&painter);
    if (size != nullptr)
        *size = drawn;
    return image;
}

} // namespace brimlet
