#include <hostkit/drawing/DrawingContent_p.h>

#include <hostkit/drawing/DrawingBytes_p.h>
#include <hostkit/drawing/DrawingCurves_p.h>
#include <hostkit/drawing/ShapeRecords_p.h>

#include <QtCore/QDataStream>
#include <QtCore/QSizeF>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace hostkit {

namespace {

constexpr quint32 kLeastString = 4;
constexpr quint32 kPointSize = 16;
constexpr quint32 kPenSize = 8;
constexpr quint32 kLeastRecord = 4 + 4 + 1 + kPointSize + 4; // lengths, kind, type, place
constexpr quint32 kUseSize = 8;
constexpr quint32 kBaseSize = 207;
constexpr quint32 kRestSize = kBaseSize + 4;
constexpr quint32 kOriginVersion = 1;

const QByteArray kGroupNames = QByteArrayLiteral("GRPS");

/** A stream onto bytes, big-endian and in double precision. */
class Writer
{
public:
    Writer() : m_stream(&bytes, QIODevice::WriteOnly) { m_stream.setVersion(kStreamVersion); }

    template <class Value>
    Writer &operator<<(const Value &value)
    {
        m_stream << value;
        return *this;
    }

    Writer &operator<<(const QString &text)
    {
        const QByteArray utf8 = text.toUtf8();
        m_stream << static_cast<quint32>(utf8.size());
        m_stream.writeRawData(utf8.constData(), utf8.size());
        return *this;
    }

    /** A count, then the bytes. */
    void counted(const QByteArray &content)
    {
        m_stream << static_cast<quint32>(content.size());
        m_stream.writeRawData(content.constData(), content.size());
    }

    void single(float value)
    {
        quint32 bits = 0;
        std::memcpy(&bits, &value, sizeof bits);
        m_stream << bits;
    }

    QByteArray bytes;

private:
    QDataStream m_stream;
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

QByteArray copied(const QByteArray &borrowed) { return {borrowed.constData(), borrowed.size()}; }

QByteArray countedOf(ByteReader &reader)
{
    const auto size = reader.number<quint32>();
    return copied(reader.bytes(size));
}

void writeFields(Writer &out, const KeyedFields &fields)
{
    for (auto field = fields.begin(); field != fields.end(); ++field) {
        out.counted(field.key());
        out.counted(field.value());
    }
}

/** The fields up to the end of what is read, each key once. */
KeyedFields fieldsOf(ByteReader &reader)
{
    KeyedFields fields;
    while (reader.ok() && !reader.atEnd()) {
        const QByteArray key = countedOf(reader);
        if (fields.contains(key))
            spoil(reader);
        fields.insert(key, countedOf(reader));
    }
    return fields;
}

QByteArray recordOf(const DrawingItem &item)
{
    Writer out;
    out.counted(item.kind);
    out << static_cast<quint8>(item.type) << item.posPx;
    out.counted(item.shape);
    writeFields(out, item.fields);
    return out.bytes;
}

bool takeRecord(const QByteArray &bytes, DrawingItem *item)
{
    ByteReader reader(bytes);
    item->kind = countedOf(reader);
    item->type = static_cast<ShapeType>(reader.byte());
    item->posPx = pointOf(reader);
    item->shape = countedOf(reader);
    item->fields = fieldsOf(reader);
    return isWhole(reader) && !item->kind.isEmpty();
}

QByteArray groupNamesToBytes(const QMap<qint32, QString> &names)
{
    Writer out;
    for (auto name = names.begin(); name != names.end(); ++name)
        out << name.key() << name.value();
    return out.bytes;
}

bool groupNamesFromBytes(const QByteArray &bytes, QMap<qint32, QString> *names)
{
    ByteReader reader(bytes);
    while (reader.ok() && !reader.atEnd()) {
        const auto id = reader.number<qint32>();
        names->insert(id, textOf(reader));
    }
    return isWhole(reader);
}

/** The first 207 bytes of an item in section REST of version 1 are those of a field. */
KeyedFields restOf(ByteReader &reader)
{
    KeyedFields fields;
    fields.insert(itemfield::kBase, copied(reader.bytes(kBaseSize)));
    const auto drawing = reader.number<qint32>();
    if (drawing < -1)
        spoil(reader);
    if (drawing >= 0)
        fields.insert(itemfield::kDrawing, numberToBytes(drawing));
    return fields;
}

QVector<StrokeFontHeight> fontHeightsOf(ByteReader &reader)
{
    QVector<StrokeFontHeight> heights;
    const quint32 fonts = countOf(reader, kLeastString + sizeof(double));
    for (quint32 i = 0; i < fonts && reader.ok(); ++i) {
        const QString fileName = textOf(reader);
        heights << StrokeFontHeight{fileName, reader.real()};
    }
    return heights;
}

/** Runs a check on a field that may be missing. */
template <class Check>
bool isGood(const DrawingItem &item, const QByteArray &key, const Check &check)
{
    const auto field = item.fields.constFind(key);
    return field == item.fields.constEnd() || check(*field);
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

QByteArray itemsToBytes(const QByteArray &counters, const QVector<DrawingItem> &items)
{
    Writer out;
    out.counted(counters);
    out << static_cast<quint32>(items.size());
    for (const DrawingItem &item : items)
        out.counted(recordOf(item));
    return out.bytes;
}

bool itemsFromBytes(const QByteArray &bytes, QByteArray *counters, QVector<DrawingItem> *items)
{
    ByteReader reader(bytes);
    *counters = countedOf(reader);
    const quint32 count = countOf(reader, kLeastRecord);
    items->reserve(static_cast<int>(count));
    for (quint32 i = 0; i < count && reader.ok(); ++i) {
        const auto size = reader.number<quint32>();
        DrawingItem item;
        if (!takeRecord(reader.bytes(size), &item))
            return false;
        *items << item;
    }
    return isWhole(reader);
}

QByteArray fontHeightsToBytes(const QVector<StrokeFontHeight> &heights)
{
    Writer out;
    out << static_cast<quint32>(heights.size());
    for (const StrokeFontHeight &font : heights)
        out << font.fileName << font.height;
    return out.bytes;
}

bool fontHeightsFromBytes(const QByteArray &bytes, QVector<StrokeFontHeight> *heights)
{
    ByteReader reader(bytes);
    *heights = fontHeightsOf(reader);
    return isWhole(reader);
}

bool restFromBytes(const QByteArray &bytes, QVector<KeyedFields> *fieldsOfItems,
                   QVector<StrokeFontHeight> *heights)
{
    ByteReader reader(bytes);
    const quint32 items = countOf(reader, kRestSize);
    for (quint32 i = 0; i < items; ++i)
        *fieldsOfItems << restOf(reader);
    *heights = fontHeightsOf(reader);
    return isWhole(reader);
}

QByteArray curveToleranceToBytes(double toleranceMm)
{
    Writer out;
    out << toleranceMm;
    return out.bytes;
}

double curveToleranceFromBytes(const QByteArray &bytes)
{
    ByteReader reader(bytes);
    const double toleranceMm = reader.real();
    const bool isSense = isWhole(reader) && std::isfinite(toleranceMm) && toleranceMm > 0.0;
    return isSense ? toleranceMm : 0.0;
}

QByteArray drawingExtrasToBytes(const DrawingExtras &extras)
{
    KeyedFields fields = extras.fields;
    if (!extras.groupNames.isEmpty())
        fields[kGroupNames] = groupNamesToBytes(extras.groupNames);
    Writer out;
    writeFields(out, fields);
    return out.bytes;
}

bool drawingExtrasFromBytes(const QByteArray &bytes, DrawingExtras *extras)
{
    ByteReader reader(bytes);
    extras->fields = fieldsOf(reader);
    return isWhole(reader) &&
           groupNamesFromBytes(extras->fields.take(kGroupNames), &extras->groupNames);
}

// As the studio has always written it: texts are UTF-16 here.
QByteArray originToBytes(const DrawingOrigin &origin)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(kStreamVersion);
    out << kOriginVersion << origin.path << origin.size << origin.modifiedMs;
    return bytes;
}

bool originFromBytes(const QByteArray &bytes, DrawingOrigin *origin)
{
    QDataStream in(bytes);
    in.setVersion(kStreamVersion);
    quint32 version = 0;
    in >> version >> origin->path >> origin->size >> origin->modifiedMs;
    return in.status() == QDataStream::Ok && version == kOriginVersion;
}

QByteArray drawingsToBytes(const QVector<QPainterPath> &drawings)
{
    Writer out;
    out << static_cast<quint32>(drawings.size());
    for (const QPainterPath &drawing : drawings) {
        const QList<QPolygonF> polylines = straightened(drawing).toSubpathPolygons();
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

namespace itemfield {

const QByteArray kBase = QByteArrayLiteral("BASE");
const QByteArray kLine = QByteArrayLiteral("LINE");
const QByteArray kDrawing = QByteArrayLiteral("PLOT");
const QByteArray kSize = QByteArrayLiteral("SIZE");
const QByteArray kZValue = QByteArrayLiteral("ZVAL");
const QByteArray kVariants = QByteArrayLiteral("VARS");

} // namespace itemfield

QByteArray baseToBytes(const ShapeBaseFields &base)
{
    Writer out;
    out << base.rectMm << base.transform << base.roundingTransform
        << static_cast<qint32>(base.fill.fillType) << base.fill.spac << base.fill.angle
        << base.fill.isEnableBorder << static_cast<quint8>(base.shapeType) << base.id
        << base.lockAspectRatio << base.penId;
    return out.bytes;
}

bool baseFromBytes(const QByteArray &bytes, ShapeBaseFields *base)
{
    ByteReader reader(bytes);
    const QPointF topLeft = pointOf(reader);
    const double width = reader.real();
    base->rectMm = QRectF(topLeft, QSizeF(width, reader.real()));
    base->transform = transformOf(reader);
    base->roundingTransform = transformOf(reader);
    base->fill.fillType = static_cast<FillType>(reader.number<qint32>());
    base->fill.spac = reader.real();
    base->fill.angle = reader.real();
    base->fill.isEnableBorder = reader.byte() != 0;
    base->shapeType = static_cast<ShapeType>(reader.byte());
    base->id = reader.number<qint32>();
    base->lockAspectRatio = reader.byte() != 0;
    base->penId = reader.number<qint32>();
    return isWhole(reader);
}

QByteArray lineToBytes(const QLineF &line)
{
    Writer out;
    out << line;
    return out.bytes;
}

bool lineFromBytes(const QByteArray &bytes, QLineF *line)
{
    ByteReader reader(bytes);
    const QPointF from = pointOf(reader);
    *line = QLineF(from, pointOf(reader));
    return isWhole(reader);
}

QByteArray numberToBytes(qint32 number)
{
    Writer out;
    out << number;
    return out.bytes;
}

bool numberFromBytes(const QByteArray &bytes, qint32 *number)
{
    ByteReader reader(bytes);
    *number = reader.number<qint32>();
    return isWhole(reader);
}

QByteArray sizeToBytes(const QSizeF &size)
{
    Writer out;
    out << size;
    return out.bytes;
}

bool sizeFromBytes(const QByteArray &bytes, QSizeF *size)
{
    ByteReader reader(bytes);
    const double width = reader.real();
    *size = QSizeF(width, reader.real());
    return isWhole(reader);
}

QByteArray realToBytes(double value)
{
    Writer out;
    out << value;
    return out.bytes;
}

bool realFromBytes(const QByteArray &bytes, double *value)
{
    ByteReader reader(bytes);
    *value = reader.real();
    return isWhole(reader);
}

QByteArray usesToBytes(const QVector<VariantTextUse> &uses)
{
    Writer out;
    for (const VariantTextUse &use : uses)
        out << use.entryId << use.turn;
    return out.bytes;
}

bool usesFromBytes(const QByteArray &bytes, QVector<VariantTextUse> *uses)
{
    ByteReader reader(bytes);
    while (reader.left() >= kUseSize) {
        const auto id = reader.number<qint32>();
        *uses << VariantTextUse{id, reader.number<qint32>()};
    }
    return isWhole(reader);
}

KeyedFields extraFieldsOf(const DrawingItem &item)
{
    KeyedFields fields = item.fields;
    for (const QByteArray &key : {itemfield::kBase, itemfield::kLine, itemfield::kDrawing,
                                  itemfield::kSize, itemfield::kZValue, itemfield::kVariants})
        fields.remove(key);
    return fields;
}

bool hasGoodFields(const DrawingItem &item, int drawings)
{
    ShapeBaseFields base;
    QLineF line;
    qint32 number = 0;
    QSizeF size;
    double value = 0.0;
    QVector<VariantTextUse> uses;
    const auto isNumberOfADrawing = [&](const QByteArray &bytes) {
        return numberFromBytes(bytes, &number) && number >= 0 && number < drawings;
    };
    using Bytes = const QByteArray &;
    return isGood(item, itemfield::kBase, [&](Bytes b) { return baseFromBytes(b, &base); }) &&
           isGood(item, itemfield::kLine, [&](Bytes b) { return lineFromBytes(b, &line); }) &&
           isGood(item, itemfield::kDrawing, isNumberOfADrawing) &&
           isGood(item, itemfield::kSize, [&](Bytes b) { return sizeFromBytes(b, &size); }) &&
           isGood(item, itemfield::kZValue, [&](Bytes b) { return realFromBytes(b, &value); }) &&
           isGood(item, itemfield::kVariants, [&](Bytes b) { return usesFromBytes(b, &uses); });
}

} // namespace hostkit
