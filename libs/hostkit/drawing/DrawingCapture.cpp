#include <hostkit/drawing/DrawingCapture.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingCurves_p.h>
#include <hostkit/drawing/ShapeRecords_p.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/items/StrokeFontHeights.h>
#include <hostkit/marks/DrawingPicture_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>
#include <QtCore/QHash>

#include <cstring>
#include <limits>
#include <map>
#include <new>

namespace hostkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingCapture)
};

using Items = QVector<ZTAbstractGraphicsItem *>;

bool notLoadable(const QString &reason, Failure *failure)
{
    return fail(failure, Failure::Kind::NotPossible,
                Texts::tr("the drawing could not be loaded again: %1").arg(reason));
}

QByteArray countersOf(const ZTGraphicsDocument &document)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(kStreamVersion);
    ZTVariantTextManager::getInstance()->save(stream);
    stream << static_cast<qint32>(document.itemMag()->getNextShapeId());
    return bytes;
}

ShapeBaseFields baseOf(ZTShapeBase &shape)
{
    ShapeBaseFields base;
    base.rectMm = shape.getRect();
    base.transform = shape.getTransformParam();
    base.roundingTransform = shape.getRoundingTransformParam();
    base.fill = shape.getFillParam();
    base.shapeType = shape.getShapeType();
    base.id = shape.getId();
    base.lockAspectRatio = shape.getLockAspectRatio();
    base.penId = shape.getPenId();
    return base;
}

/** The uses of the registry of variant texts, by the shapes that use it. */
QHash<const ZTShapeBase *, QVector<VariantTextUse>> variantTextUses()
{
    const ZTVariantTextManager &registry = *ZTVariantTextManager::getInstance();
    QHash<const ZTShapeBase *, QVector<VariantTextUse>> uses;
    for (const int id : registry.getIds()) {
        qint32 turn = 0;
        for (const ZTTextShapeBase *shape : registry.getShapes(id))
            uses[shape] << VariantTextUse{id, turn++};
    }
    return uses;
}

/** Makes records of items, each imported drawing once. */
class Collector
{
public:
    explicit Collector(const DrawingExtras &carried) : m_uses(variantTextUses())
    {
        m_foreign = carried.foreignItems;
    }

    bool add(const ZTAbstractGraphicsItem &item, Failure *failure);
    void addForeignUpTo(int place);

    QVector<DrawingItem> items;
    QVector<QPainterPath> drawings;

private:
    KeyedFields fieldsOf(const ZTAbstractGraphicsItem &item, const QByteArray &kind);
    qint32 numberOf(const QPainterPath &path);

    QHash<const ZTShapeBase *, QVector<VariantTextUse>> m_uses;
    QHash<QByteArray, qint32> m_numbers;
    QVector<ForeignItem> m_foreign;
};

/** What a shape writes of itself, once it is certain that it can be loaded again. */
bool takeRecord(const ZTAbstractGraphicsItem &item, DrawingItem *taken, Failure *failure)
{
    QBuffer buffer(&taken->shape);
    buffer.open(QIODevice::WriteOnly);
    QDataStream stream(&buffer);
    stream.setVersion(kStreamVersion);
    item.getShapeBase()->save(stream);
    const auto type = libraryKind(taken->kind);
    QString reason;
    if (type && !checkShapeRecord(*type, taken->shape, &reason))
        return notLoadable(reason, failure);
    // Every loaded shape is rebuilt, so that its mark says nothing; without it equal is equal.
    if (!lacksBase(taken->kind))
        std::memset(taken->shape.data() + kUpdateOffset, 0, sizeof(qint32));
    return true;
}

bool isNoKind(const QByteArray &kind)
{
    return kind.isEmpty() || kind == "unknown" || kind == ShapeType2String(ShapeType::None);
}

bool Collector::add(const ZTAbstractGraphicsItem &item, Failure *failure)
{
    DrawingItem taken;
    taken.kind = itemKind(item);
    if (isNoKind(taken.kind))
        return notLoadable(Texts::tr("object %1 is of no kind").arg(item.getShapeBase()->getId()),
                           failure);
    addForeignUpTo(items.size());
    taken.type = item.getShapeType();
    taken.posPx = item.pos();
    taken.fields = fieldsOf(item, taken.kind);
    if (!takeRecord(item, &taken, failure))
        return false;
    items << taken;
    return true;
}

void Collector::addForeignUpTo(int place)
{
    while (!m_foreign.isEmpty() && m_foreign.first().place <= place) {
        ForeignItem kept = m_foreign.takeFirst();
        if (!kept.drawing.isEmpty())
            kept.item.fields[itemfield::kDrawing] = numberToBytes(numberOf(kept.drawing));
        items << kept.item;
        place = qMax(place, items.size());
    }
}

KeyedFields Collector::fieldsOf(const ZTAbstractGraphicsItem &item, const QByteArray &kind)
{
    ZTShapeBase &shape = *item.getShapeBase();
    KeyedFields fields = extrasToFields(itemExtras(item));
    if (lacksBase(kind))
        fields[itemfield::kBase] = baseToBytes(baseOf(shape));
    if (const auto *line = dynamic_cast<const ZTLineShape *>(&shape))
        fields[itemfield::kLine] = lineToBytes(line->getLine());
    const auto *graphic = dynamic_cast<const ZTVecGraph *>(&shape);
    if (graphic != nullptr && !graphic->getDrawing().isEmpty())
        fields[itemfield::kDrawing] = numberToBytes(numberOf(graphic->getDrawing()));
    if (item.getSize().isValid())
        fields[itemfield::kSize] = sizeToBytes(item.getSize());
    if (item.zValue() != 0.0)
        fields[itemfield::kZValue] = realToBytes(item.zValue());
    if (const auto used = m_uses.constFind(&shape); used != m_uses.constEnd())
        fields[itemfield::kVariants] = usesToBytes(*used);
    return fields;
}

qint32 Collector::numberOf(const QPainterPath &path)
{
    const QByteArray content = drawingsToBytes({path}) + curvesToBytes({path});
    const auto known = m_numbers.constFind(content);
    if (known != m_numbers.constEnd())
        return *known;
    const qint32 number = drawings.size();
    drawings << path;
    m_numbers.insert(content, number);
    return number;
}

QVector<DrawingPen> pensOf(const Items &items)
{
    std::map<qint32, qint32> counts;
    for (const ZTAbstractGraphicsItem *item : items)
        ++counts[item->getPenId()];
    QVector<DrawingPen> pens;
    for (const auto &[id, count] : counts)
        pens << DrawingPen{id, count};
    return pens;
}

DrawingMeta metaOf(const ZTGraphicsDocument &document, const Items &items,
                   const DrawingCapture &capture)
{
    DrawingMeta meta;
    meta.programVersion = capture.programVersion;
    meta.savedAt =
        capture.savedAt.isValid() ? capture.savedAt.toUTC() : QDateTime::currentDateTimeUtc();
    meta.setup = DrawingSetup::of(document);
    meta.pens = pensOf(items);
    return meta;
}

/** What a capture of some items takes of what their document carries. */
DrawingExtras extrasOfItems(const DrawingExtras &carried, const Items &items)
{
    DrawingExtras extras;
    for (const ZTAbstractGraphicsItem *item : items) {
        for (const qint32 id : itemExtras(*item).groupPath) {
            if (carried.groupNames.contains(id))
                extras.groupNames.insert(id, carried.groupNames.value(id));
        }
    }
    return extras;
}

bool captureSome(ZTGraphicsDocument &document, const Items &items, const DrawingExtras &extras,
                 const DrawingCapture &capture, DrawingFile *drawing, Failure *failure)
{
    DrawingFile taken;
    taken.version = kDrawingFormatVersion;
    taken.meta = metaOf(document, items, capture);
    if (!taken.meta.setup.isUsable())
        return notLoadable(Texts::tr("its millimetres have no size"), failure);
    taken.counters = countersOf(document);
    taken.extras = extras;
    Collector collector(taken.extras);
    for (const ZTAbstractGraphicsItem *item : items) {
        if (!collector.add(*item, failure))
            return false;
    }
    collector.addForeignUpTo(std::numeric_limits<int>::max());
    taken.extras.foreignItems.clear();
    taken.items = collector.items;
    taken.drawings = collector.drawings;
    taken.fontHeights = recordedFontHeights(items);
    if (capture.withPreview)
        taken.previewPng = drawPreview(items);
    *drawing = taken;
    return true;
}

} // namespace

bool captureDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture,
                    DrawingFile *drawing, Failure *failure)
{
    try {
        return captureSome(document, shapeItemsOf(document), drawingExtras(document), capture,
                           drawing, failure);
    } catch (const std::bad_alloc &) {
        return fail(failure, Failure::Kind::NotPossible,
                    Texts::tr("needs more memory than there is"));
    }
}

bool captureItems(ZTGraphicsDocument &document, const QVector<ZTAbstractGraphicsItem *> &items,
                  const DrawingCapture &capture, DrawingFile *drawing, Failure *failure)
{
    try {
        return captureSome(document, items, extrasOfItems(drawingExtras(document), items), capture,
                           drawing, failure);
    } catch (const std::bad_alloc &) {
        return fail(failure, Failure::Kind::NotPossible,
                    Texts::tr("needs more memory than there is"));
    }
}

bool saveDrawing(ZTGraphicsDocument &document, const DrawingCapture &capture, const QString &path,
                 Failure *failure)
{
    DrawingFile drawing;
    return captureDrawing(document, capture, &drawing, failure) &&
           writeDrawing(drawing, path, failure);
}

} // namespace hostkit
