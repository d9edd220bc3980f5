#include <hostkit/drawing/DrawingContent_p.h>

#include <hostkit/drawing/DrawingBytes_p.h>
#include <hostkit/drawing/DrawingStream_p.h>

#include <QtCore/QDataStream>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace hostkit {

namespace {

constexpr quint32 kLeastString = 4;
constexpr quint32 kPointSize = 16;
constexpr quint32 kPenSize = 8;
constexpr quint32 kItemSize = 211;

/** A stream onto bytes, big-endian and in double precision. */
class Writer
{
public:
    Writer() : stream(&bytes, QIODevice::WriteOnly) { stream.setVersion(kStreamVersion); }

    template <class Value>
    Writer &operator<<(const Value &value)
    {
        stream << value;
        return *this;
    }

    Writer &operator<<(const QString &text)
    {
        const QByteArray utf8 = text.toUtf8();
        stream << static_cast<quint32>(utf8.size());
        stream.writeRawData(utf8.constData(), utf8.size());
        return *this;
    }

    void single(float value)
    {
        quint32 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        stream << bits;
    }

    QByteArray bytes;

private:
    QDataStream stream;
};

void spoil(ByteReader &reader) { reader.skip(quint64(reader.left()) + 1); }

/** A count that what is left can hold; 0, and the reader spoiled, for any other. */
quint32 countOf(ByteReader &reader, quint32 leastSize)
{
    const auto count = reader.number<quint32>();
    if (count <= reader.left() / leastSize)
        return count;
    spoil(reader);
    return 0;
}

/** Limit: so far that the far side of a work area is still a whole number of 32 bits. */
bool isWorkArea(qint32 fromMm, qint32 sizeMm)
{
    constexpr qint32 kMaxMm = 1'000'000'000;
    return std::abs(qint64(fromMm)) <= kMaxMm && std::abs(qint64(sizeMm)) <= kMaxMm;
}

QString textOf(ByteReader &reader)
{
    const auto size = reader.number<quint32>();
    return QString::fromUtf8(reader.bytes(size));
}

bool isWhole(const ByteReader &reader) { return reader.ok() && reader.atEnd(); }

QPointF pointOf(ByteReader &reader)
{
    const double x = reader.real();
    return {x, reader.real()};
}

/** False for what is no number, and for what no plotter drawing reaches at 20 mm of height. */
bool isPlace(const QPointF &pointMm)
{
    constexpr double kMaxMm = 1e12;
    return std::abs(pointMm.x()) <= kMaxMm && std::abs(pointMm.y()) <= kMaxMm;
}

/** At least two points, as every polyline of an imported drawing has. */
QPolygonF polylineOf(ByteReader &reader)
{
    const quint32 count = countOf(reader, kPointSize);
    QPolygonF polyline;
    polyline.reserve(static_cast<int>(count));
    for (quint32 i = 0; i < count; ++i)
        polyline << pointOf(reader);
    if (count < 2 || !std::all_of(polyline.begin(), polyline.end(), isPlace))
        spoil(reader);
    return polyline;
}

QTransform transformOf(ByteReader &reader)
{
    double m[9];
    for (double &value : m)
        value = reader.real();
    return {m[0], m[1], m[2], m[3], m[4], m[5], m[6], m[7], m[8]};
}

float singleOf(ByteReader &reader)
{
    const auto bits = reader.number<quint32>();
    float value = 0.0F;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

DrawingSetup setupOf(ByteReader &reader)
{
    DrawingSetup setup;
    setup.width = reader.real();
    setup.height = reader.real();
    setup.physicalWidth = reader.real();
    setup.physicalHeight = reader.real();
    setup.displayRatio = reader.real();
    setup.distance = reader.real();
    setup.sortKind = static_cast<EShapeSortType>(reader.number<qint32>());
    const auto x = reader.number<qint32>();
    const auto y = reader.number<qint32>();
    const auto width = reader.number<qint32>();
    const auto height = reader.number<qint32>();
    if (isWorkArea(x, width) && isWorkArea(y, height))
        setup.workAreaMm = QRect(x, y, width, height);
    else
        spoil(reader);
    setup.markScaleX = singleOf(reader);
    setup.markScaleY = singleOf(reader);
    return setup;
}

DrawingItemRest itemOf(ByteReader &reader)
{
    DrawingItemRest item;
    const QPointF topLeft = pointOf(reader);
    const double width = reader.real();
    item.rectMm = QRectF(topLeft, QSizeF(width, reader.real()));
    item.transform = transformOf(reader);
    item.roundingTransform = transformOf(reader);
    item.fill.fillType = static_cast<FillType>(reader.number<qint32>());
    item.fill.spac = reader.real();
    item.fill.angle = reader.real();
    item.fill.isEnableBorder = reader.byte() != 0;
    item.shapeType = static_cast<ShapeType>(reader.byte());
    item.id = reader.number<qint32>();
    item.lockAspectRatio = reader.byte() != 0;
    item.penId = reader.number<qint32>();
    item.drawing = reader.number<qint32>();
    return item;
}

} // namespace

QByteArray metaToBytes(const DrawingMeta &meta)
{
    const DrawingSetup &setup = meta.setup;
    Writer out;
    out << meta.programVersion << meta.savedAt.toMSecsSinceEpoch();
    out << setup.width << setup.height << setup.physicalWidth << setup.physicalHeight
        << setup.displayRatio << setup.distance << static_cast<qint32>(setup.sortKind);
    const QRect &area = setup.workAreaMm;
    out << area.x() << area.y() << area.width() << area.height();
    out.single(setup.markScaleX);
    out.single(setup.markScaleY);
    out << static_cast<quint32>(meta.pens.size());
    for (const DrawingPen &pen : meta.pens)
        out << pen.id << pen.items;
    return out.bytes;
}

bool metaFromBytes(const QByteArray &bytes, DrawingMeta *meta)
{
    ByteReader reader(bytes);
    meta->programVersion = textOf(reader);
    meta->savedAt = QDateTime::fromMSecsSinceEpoch(reader.number<qint64>(), Qt::UTC);
    meta->setup = setupOf(reader);
    const quint32 pens = countOf(reader, kPenSize);
    for (quint32 i = 0; i < pens; ++i) {
        const auto id = reader.number<qint32>();
        meta->pens << DrawingPen{id, reader.number<qint32>()};
    }
    return isWhole(reader);
}

QByteArray restToBytes(const DrawingRest &rest)
{
    Writer out;
    out << static_cast<quint32>(rest.items.size());
    for (const DrawingItemRest &item : rest.items) {
        out << item.rectMm << item.transform << item.roundingTransform
            << static_cast<qint32>(item.fill.fillType) << item.fill.spac << item.fill.angle
            << item.fill.isEnableBorder << static_cast<quint8>(item.shapeType) << item.id
            << item.lockAspectRatio << item.penId << item.drawing;
    }
    out << static_cast<quint32>(rest.fontHeights.size());
    for (const DrawingFontHeight &font : rest.fontHeights)
        out << font.fileName << font.height;
    return out.bytes;
}

bool restFromBytes(const QByteArray &bytes, DrawingRest *rest)
{
    ByteReader reader(bytes);
    const quint32 items = countOf(reader, kItemSize);
    for (quint32 i = 0; i < items; ++i)
        rest->items << itemOf(reader);
    const quint32 fonts = countOf(reader, kLeastString + sizeof(double));
    for (quint32 i = 0; i < fonts && reader.ok(); ++i) {
        const QString fileName = textOf(reader);
        rest->fontHeights << DrawingFontHeight{fileName, reader.real()};
    }
    return isWhole(reader);
}

QByteArray drawingsToBytes(const QVector<QPainterPath> &drawings)
{
    Writer out;
    out << static_cast<quint32>(drawings.size());
    for (const QPainterPath &drawing : drawings) {
        const QList<QPolygonF> polylines = drawing.toSubpathPolygons();
        out << static_cast<quint32>(polylines.size());
        for (const QPolygonF &polyline : polylines)
            out << static_cast<const QVector<QPointF> &>(polyline);
    }
    return out.bytes;
}

bool drawingsFromBytes(const QByteArray &bytes, QVector<QPainterPath> *drawings)
{
    ByteReader reader(bytes);
    const quint32 count = countOf(reader, sizeof(quint32));
    for (quint32 i = 0; i < count && reader.ok(); ++i) {
        QPainterPath drawing;
        const quint32 polylines = countOf(reader, sizeof(quint32));
        for (quint32 k = 0; k < polylines && reader.ok(); ++k)
            drawing.addPolygon(polylineOf(reader));
        *drawings << drawing;
    }
    return isWhole(reader);
}

} // namespace hostkit
