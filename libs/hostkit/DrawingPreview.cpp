#include <hostkit/DrawingPreview_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QtMath>
#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <cmath>

namespace hostkit {

namespace {

constexpr double kSide = 256.0;
constexpr double kMargin = 4.0;

QRectF extentOf(const QVector<ZTAbstractGraphicsItem *> &items)
{
    QRectF extentPx;
    for (const ZTAbstractGraphicsItem *item : items) {
        const QRectF boxPx = item->mapRectToScene(item->boundingRect());
        if (std::isfinite(boxPx.x() + boxPx.y() + boxPx.width() + boxPx.height()))
            extentPx |= boxPx;
    }
    return extentPx;
}

} // namespace

// The items are painted one by one: the scene would show selection frame and grid, too.
QByteArray drawPreview(const QVector<ZTAbstractGraphicsItem *> &items)
{
    const QRectF extentPx = extentOf(items);
    const double longer = qMax(extentPx.width(), extentPx.height());
    if (!(longer > 0.0))
        return {};
    const double scale = (kSide - 2.0 * kMargin) / longer;
    const QSizeF innerSize = extentPx.size() * scale;
    const QSize size(qCeil(innerSize.width() + 2.0 * kMargin),
                     qCeil(innerSize.height() + 2.0 * kMargin));
    QImage image(size.boundedTo(QSize(int(kSide), int(kSide))), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (ZTAbstractGraphicsItem *item : items) {
        painter.setTransform(
            item->sceneTransform() * QTransform::fromTranslate(-extentPx.x(), -extentPx.y()) *
            QTransform::fromScale(scale, scale) * QTransform::fromTranslate(kMargin, kMargin));
        item->paint(&painter, nullptr);
    }
    painter.end();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

} // namespace hostkit
