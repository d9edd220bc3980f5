#include <hostkit/marks/DrawingPicture.h>

#include <hostkit/files/FileWriter.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/marks/DrawingPicture_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QSet>
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
        if (!item->isVisible())
            continue;
        const QRectF boxPx = item->mapRectToScene(item->boundingRect());
        if (std::isfinite(boxPx.x() + boxPx.y() + boxPx.width() + boxPx.height()))
            extentPx |= boxPx;
    }
    return extentPx;
}

/**
 * Which items a picture this small needs: of very many, one for each place and size that can be
 * told apart, so that a picture of 100,000 hatched shapes takes no longer than one of some
 * thousand.
 */
class Places
{
public:
    Places(int count, const QTransform &pictureTransform)
        : m_isFew(count <= kFew), m_toPicture(pictureTransform)
    {
    }

    bool isNew(const ZTAbstractGraphicsItem &item)
    {
        if (m_isFew)
            return true;
        const QRectF box = (item.sceneTransform() * m_toPicture)
                               .mapRect(item.boundingRect())
                               .intersected(kPicture);
        const bool isSmall = qMax(box.width(), box.height()) < kLargeCell;
        const auto cell = [side = isSmall ? kSmallCell : kLargeCell](double px) {
            return static_cast<quint32>(qMax(0.0, px / side));
        };
        const quint32 key = (cell(box.left()) << 24) | (cell(box.top()) << 16) |
                            (cell(box.width()) << 8) | cell(box.height());
        const int known = m_taken.size();
        m_taken.insert(key);
        return m_taken.size() > known;
    }

private:
    static constexpr int kFew = 4000;
    static constexpr double kSmallCell = 2.0;
    static constexpr double kLargeCell = 8.0;
    static constexpr QRectF kPicture{0.0, 0.0, kSide, kSide};

    bool m_isFew;
    QTransform m_toPicture;
    QSet<quint32> m_taken;
};

/** What becomes of items that a small picture cannot tell apart. */
enum class Crowd {
    Whole,   ///< all are drawn
    Thinned, ///< one for each place is
};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingPicture)
};

// The items are painted one by one: the scene would show selection frame and grid, too.
QImage drawItems(const QVector<ZTAbstractGraphicsItem *> &items, int longerSidePx, Crowd crowd)
{
    const QRectF extentPx = extentOf(items);
    const double longer = qMax(extentPx.width(), extentPx.height());
    if (!(longer > 0.0))
        return {};
    const double scale = (longerSidePx - 2.0 * kMargin) / longer;
    const QSizeF innerSize = extentPx.size() * scale;
    const QSize size(qCeil(innerSize.width() + 2.0 * kMargin),
                     qCeil(innerSize.height() + 2.0 * kMargin));
    QImage image(size.boundedTo(QSize(longerSidePx, longerSidePx)), QImage::Format_ARGB32);
    if (image.isNull())
        return {};
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform toPicture = QTransform::fromTranslate(-extentPx.x(), -extentPx.y()) *
                                 QTransform::fromScale(scale, scale) *
                                 QTransform::fromTranslate(kMargin, kMargin);
    Places places(items.size(), toPicture);
    for (ZTAbstractGraphicsItem *item : items) {
        if (!item->isVisible() || (crowd == Crowd::Thinned && !places.isNew(*item)))
            continue;
        painter.setTransform(item->sceneTransform() * toPicture);
        item->paint(&painter, nullptr);
    }
    return image;
}

QByteArray pngOf(const QImage &image)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

} // namespace

QByteArray drawPreview(const QVector<ZTAbstractGraphicsItem *> &items)
{
    const QImage image = drawItems(items, int(kSide), Crowd::Thinned);
    return image.isNull() ? QByteArray() : pngOf(image);
}

bool saveDrawingPicture(const ZTGraphicsDocument &document, int longerSidePx, const QString &path,
                        Failure *failure)
{
    const QVector<ZTAbstractGraphicsItem *> items = shapeItemsOf(document);
    const QImage image = drawItems(items, longerSidePx, Crowd::Whole);
    if (image.isNull())
        return fail(failure, Failure::Kind::NotPossible,
                    extentOf(items).isEmpty() ? Texts::tr("nothing to draw")
                                              : Texts::tr("no room for the picture"));
    // The encoder prints to stderr when its device fails, so it does not get to see the file.
    const QByteArray png = pngOf(image);
    return saveWhole(
        path, [&png](QIODevice &device) { return device.write(png) == png.size(); }, failure);
}

} // namespace hostkit
