#include <hostkit/drawing/DrawingSnapshot.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingPreview_p.h>
#include <hostkit/drawing/DrawingRefusal_p.h>
#include <hostkit/drawing/DrawingStream_p.h>
#include <hostkit/text/StrokeFontHeights_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QHash>

#include <cstring>
#include <map>

namespace hostkit {

namespace {

constexpr int kUpdateOffset = 201; // of the mark for a rebuild in a shape's base record

bool notLoadable(const QString &reason, DrawingError *error)
{
    return refuse(error, DrawingError::Kind::NotLoadable,
                  QStringLiteral("the drawing could not be loaded again: %1").arg(reason));
}

QByteArray streamOf(ZTGraphicsDocument &document)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setVersion(kStreamVersion);
    document.itemMag()->save(stream);
    return bytes;
}

/** Every loaded shape is rebuilt, so that the mark says nothing; without it equal is equal. */
void clearMarks(const DrawingStreamIndex &index, QByteArray *stream)
{
    for (const DrawingRecord &record : index.records) {
        if (!isShortRecord(record.type))
            std::memset(stream->data() + record.shape + kUpdateOffset, 0, sizeof(qint32));
    }
}

/** The stream, once it is certain that it can be loaded again. */
bool takeStream(ZTGraphicsDocument &document, QByteArray *stream, DrawingError *error)
{
    *stream = streamOf(document);
    DrawingStreamIndex index;
    QString reason;
    if (!indexDrawingStream(*stream, &index, &reason))
        return notLoadable(reason, error);
    clearMarks(index, stream);
    return true;
}

QVector<DrawingPen> pensOf(const QVector<ZTAbstractGraphicsItem *> &items)
{
    std::map<qint32, qint32> counts;
    for (const ZTAbstractGraphicsItem *item : items)
        ++counts[item->getPenId()];
    QVector<DrawingPen> pens;
    for (const auto &[id, count] : counts)
        pens << DrawingPen{id, count};
    return pens;
}

DrawingMeta metaOf(const QVector<ZTAbstractGraphicsItem *> &items, const DrawingCapture &capture)
{
    DrawingMeta meta;
    meta.programVersion = capture.programVersion;
    meta.savedAt =
        capture.savedAt.isValid() ? capture.savedAt.toUTC() : QDateTime::currentDateTimeUtc();
    meta.pens = pensOf(items);
    return meta;
}

/** Collects what the stream loses, each imported drawing once. */
class RestCollector
{
public:
    void add(const ZTAbstractGraphicsItem &item)
    {
        ZTShapeBase &shape = *item.getShapeBase();
        DrawingItemRest kept;
        kept.rectMm = shape.getRect();
        kept.transform = shape.getTransformParam();
        kept.roundingTransform = shape.getRoundingTransformParam();
        kept.fill = shape.getFillParam();
        kept.shapeType = shape.getShapeType();
        kept.id = shape.getId();
        kept.lockAspectRatio = shape.getLockAspectRatio();
        kept.penId = shape.getPenId();
        if (const auto *graphic = dynamic_cast<const ZTVecGraph *>(&shape))
            kept.drawing = numberOf(graphic->getDrawing());
        rest.items << kept;
    }

    DrawingRest rest;

private:
    qint32 numberOf(const QPainterPath &path)
    {
        if (path.isEmpty())
            return -1;
        const QByteArray content = drawingsToBytes({path});
        const auto known = numbers.constFind(content);
        if (known != numbers.constEnd())
            return *known;
        const qint32 number = rest.drawings.size();
        rest.drawings << path;
        numbers.insert(content, number);
        return number;
    }

    QHash<QByteArray, qint32> numbers;
};

DrawingRest restOf(const QVector<ZTAbstractGraphicsItem *> &items)
{
    RestCollector collector;
    for (const ZTAbstractGraphicsItem *item : items) {
        if (isShortRecord(item->getShapeType()))
            collector.add(*item);
    }
    collector.rest.fontHeights = strokeFontHeights(items);
    return collector.rest;
}

} // namespace

bool captureDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture,
                    DrawingFile *drawing, DrawingError *error)
{
    DrawingFile taken;
    if (!takeStream(document, &taken.stream, error))
        return false;
    const QVector<ZTAbstractGraphicsItem *> items = shapeItemsOf(document);
    taken.meta = metaOf(items, capture);
    taken.meta.setup = DrawingSetup::of(document);
    if (!taken.meta.setup.isUsable())
        return notLoadable(QStringLiteral("its millimetres have no size"), error);
    taken.hasRest = true;
    taken.rest = restOf(items);
    if (capture.withPreview)
        taken.previewPng = drawPreview(items);
    taken.unknown = capture.unknown;
    *drawing = taken;
    return true;
}

bool saveDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture, const QString &path,
                 DrawingError *error)
{
    DrawingFile drawing;
    return captureDrawing(document, capture, &drawing, error) && writeDrawing(drawing, path, error);
}

} // namespace hostkit
