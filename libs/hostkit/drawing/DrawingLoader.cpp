#include <hostkit/drawing/DrawingLoader_p.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingRefusal_p.h>
#include <hostkit/drawing/DrawingStream_p.h>
#include <hostkit/text/FontPresence.h>
#include <hostkit/text/StrokeFontHeights_p.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>

#include <memory>
#include <new>
#include <set>
#include <vector>

namespace hostkit {

namespace {

constexpr qint64 kPieceMs = 40; // between two calls of the progress function

/** Big-endian and of the drawing's version, as every stream over a drawing's bytes is. */
void prepare(QDataStream &stream) { stream.setVersion(kStreamVersion); }

void restore(ZTShapeBase &shape, const DrawingItemRest &kept)
{
    shape.setRect(kept.rectMm);
    shape.getTransformParam() = kept.transform;
    shape.setRoundingTransformParam(kept.roundingTransform);
    shape.setShapeType(kept.shapeType);
    shape.setId(kept.id);
    shape.setLockAspectRatio(kept.lockAspectRatio);
    shape.setPenId(kept.penId);
    shape.setFillParam(kept.fill);
    shape.setUpdate(1);
    shape.paint();
}

/** Notes the fonts that texts name and this machine lacks. */
class FontCheck
{
public:
    void look(const ZTShapeText &text)
    {
        const ZTFontParam param = text.getFont();
        if (param.fontType == FontType::doubleLine)
            lookForFamily(param.font.family());
        if (param.fontType == FontType::singleLine) {
            lookForStrokeFont(param.shxFont.enName);
            lookForStrokeFont(param.shxFont.zhName);
        }
    }

    QStringList missing() const
    {
        QStringList names;
        for (const QString &name : lacking)
            names << name;
        return names;
    }

private:
    void lookForFamily(const QString &family)
    {
        if (known.insert(family).second && !hasSystemFont(family))
            lacking.insert(family);
    }

    void lookForStrokeFont(const QString &fileName)
    {
        if (known.insert(fileName).second && !fileName.isEmpty() && !hasStrokeFont(fileName))
            lacking.insert(fileName);
    }

    std::set<QString> known;
    std::set<QString> lacking;
};

/** Lets the drawing's set-up hold while its shapes are rebuilt, and no longer. */
class BorrowedSetup
{
public:
    BorrowedSetup(const DrawingSetup &borrowed, const DrawingSetup &ownSetup,
                  const QVector<DrawingFontHeight> &ownHeights)
        : setup(ownSetup), heights(ownHeights)
    {
        borrowed.applyToProcess();
    }
    ~BorrowedSetup()
    {
        setup.applyToProcess();
        setStrokeFontHeights(heights);
    }
    BorrowedSetup(const BorrowedSetup &) = delete;
    BorrowedSetup &operator=(const BorrowedSetup &) = delete;

private:
    const DrawingSetup &setup;
    const QVector<DrawingFontHeight> &heights;
};

/** Builds the items of a drawing, in no scene, and hands them over at the end. */
class Loader
{
public:
    Loader(const DrawingLoad &how, const DrawingFile &source, ZTGraphicsDocument &target)
        : load(how), drawing(source), document(target), ownSetup(DrawingSetup::of(target)),
          ownHeights(strokeFontHeights(shapeItemsOf(target))), buffer(&bytes), stream(&buffer)
    {
        bytes = source.stream;
        buffer.open(QIODevice::ReadOnly);
        prepare(stream);
    }

    bool build(DrawingError *error);
    void handOver();
    QStringList missingFonts() const { return fonts.missing(); }

private:
    int doneItems() const { return static_cast<int>(items.size()); }
    bool buildSome(DrawingError *error);
    bool buildNext(DrawingError *error);
    bool keep(std::unique_ptr<ZTAbstractGraphicsItem> item, DrawingError *error);
    void fillShape(ZTAbstractGraphicsItem &item, const DrawingRecord &record);
    bool takeGraphic(ZTShapeBase &shape, const DrawingRecord &record);
    void takeText(ZTShapeText &text, const DrawingRecord &record);
    void redrawStrokeTexts();
    void takeCounters();

    const DrawingLoad &load;
    const DrawingFile &drawing;
    ZTGraphicsDocument &document;
    const DrawingSetup ownSetup;
    const QVector<DrawingFontHeight> ownHeights;
    DrawingStreamIndex index;
    QByteArray bytes;
    QBuffer buffer;
    QDataStream stream;
    std::vector<std::unique_ptr<ZTAbstractGraphicsItem>> items;
    qint64 pieces = 0; ///< points and hatch lines of the items so far
    int nextRest = 0;
    FontCheck fonts;
};

bool Loader::build(DrawingError *error)
{
    QString reason;
    if (!checkDrawing(drawing, error) || !indexDrawingStream(drawing.stream, &index, &reason))
        return false;
    const int total = index.records.size();
    items.reserve(static_cast<std::size_t>(total));
    while (doneItems() < total) {
        if (!buildSome(error))
            return false;
        if (load.progress && !load.progress(doneItems(), total)) {
            return refuse(error, DrawingError::Kind::Cancelled, QStringLiteral("cancelled"));
        }
    }
    return true;
}

/** As much as fits between two calls of the progress function. */
bool Loader::buildSome(DrawingError *error)
{
    const BorrowedSetup borrowed(drawing.meta.setup, ownSetup, ownHeights);
    QElapsedTimer sinceStart;
    sinceStart.start();
    bool isGood = true;
    while (isGood && doneItems() < index.records.size() && !sinceStart.hasExpired(kPieceMs))
        isGood = buildNext(error);
    return isGood;
}

bool Loader::buildNext(DrawingError *error)
{
    const DrawingRecord &record = index.records[doneItems()];
    const char *kind = ShapeType2String(record.type);
    std::unique_ptr<ZTAbstractGraphicsItem> item(ZTGraphicsItemFactory::create(kind));
    if (!item || item->getShapeBase() == nullptr) {
        *error = {
            DrawingError::Kind::NotLoadable,
            QStringLiteral("this program makes no objects of kind %1").arg(QLatin1String(kind))};
        return false;
    }
    QPointF posPx;
    buffer.seek(record.begin + 1);
    stream >> posPx;
    fillShape(*item, record);
    item->setPos(posPx);
    item->setShapeType(record.type);
    return keep(std::move(item), error);
}

/**
 * Keeps an item, unless those so far have become too much: small records can ask for shapes that
 * are each within the library's limits and together beyond any memory.
 */
bool Loader::keep(std::unique_ptr<ZTAbstractGraphicsItem> item, DrawingError *error)
{
    const ZTShapeBase &shape = *item->getShapeBase();
    pieces += shape.getLines().elementCount() + shape.getFillLines().size();
    if (pieces > load.maxPieces) {
        return refuse(
            error, DrawingError::Kind::NotLoadable,
            QStringLiteral("holds more than %1 points and hatch lines").arg(load.maxPieces));
    }
    items.push_back(std::move(item));
    return true;
}

void Loader::fillShape(ZTAbstractGraphicsItem &item, const DrawingRecord &record)
{
    ZTShapeBase &shape = *item.getShapeBase();
    if (!takeGraphic(shape, record))
        item.load(stream);
    if (drawing.hasRest && isShortRecord(record.type))
        restore(shape, drawing.rest.items[nextRest++]);
    if (ZTShapeText *text = textOf(item))
        takeText(*text, record);
}

/**
 * An imported drawing comes with the file. Without it the library opens the file behind the path,
 * as it does; but a path may name a pipe or a device that never ends.
 */
bool Loader::takeGraphic(ZTShapeBase &shape, const DrawingRecord &record)
{
    auto *graphic = dynamic_cast<ZTVecGraph *>(&shape);
    if (graphic == nullptr)
        return false;
    QString path;
    stream >> path;
    buffer.seek(record.shape);
    const QFileInfo file(path);
    if (!drawing.hasRest && (!file.exists() || file.isFile()))
        return false;
    const int number = drawing.hasRest ? drawing.rest.items[nextRest].drawing : -1;
    graphic->setDrawing(number < 0 ? QPainterPath() : drawing.rest.drawings[number], path);
    graphic->paint();
    return true;
}

/**
 * Loading gives a text the rectangle of its font; what was saved may be another one. And a text
 * that names no stroke fonts keeps those that every new text has at hand.
 */
void Loader::takeText(ZTShapeText &text, const DrawingRecord &record)
{
    fonts.look(text);
    ZTShxFontParam strokeFont = text.getFont().shxFont;
    const bool isNamed = !strokeFont.enName.isEmpty() && !strokeFont.zhName.isEmpty();
    if (!isNamed && strokeFont.parser.getTextHeight() != 0.0) {
        strokeFont.parser = ZTRegBigFontShxParser();
        text.setFont(strokeFont);
    }
    QRectF savedMm;
    buffer.seek(record.shape);
    stream >> savedMm;
    if (text.getRect() == savedMm)
        return;
    text.setRect(savedMm);
    text.paint();
}

void Loader::handOver()
{
    drawing.meta.setup.applyTo(document);
    setStrokeFontHeights(drawing.rest.fontHeights);
    redrawStrokeTexts();
    document.clear();
    takeCounters();
    ZTGraphicsScene *scene = document.itemMag()->scene();
    auto *model = qobject_cast<ZTItemModel *>(document.itemMag()->itemModel());
    for (auto &item : items) {
        ZTAbstractGraphicsItem *taken = item.release();
        scene->addItem(taken);
        model->insert(taken->getShapeType(), taken);
    }
    items.clear();
    scene->update(QRectF());
}

void Loader::redrawStrokeTexts()
{
    for (const auto &item : items) {
        ZTShapeText *text = textOf(*item);
        if (text == nullptr || text->getFont().fontType != FontType::singleLine)
            continue;
        text->setUpdate(1);
        text->paint();
    }
}

/** Variant texts and next id, by the library's own loader, of a stream that announces no item. */
void Loader::takeCounters()
{
    QByteArray counters = drawing.stream.left(index.counters + int(sizeof(qint32)));
    counters.append(int(sizeof(qint32)), '\0');
    QDataStream countersStream(counters);
    prepare(countersStream);
    document.itemMag()->load(countersStream);
}

/** Qt throws when there is no memory for a shape; the items so far make room again. */
bool buildWithin(Loader &loader, DrawingError *error)
{
    try {
        return loader.build(error);
    } catch (const std::bad_alloc &) {
        return refuse(error, DrawingError::Kind::NotLoadable,
                      QStringLiteral("needs more memory than there is"));
    }
}

} // namespace

bool applyDrawing(const DrawingFile &drawing, ZTGraphicsDocument &document,
                  const DrawingProgress &progress, DrawingReport *report, DrawingError *error)
{
    return applyWithin({progress}, drawing, document, report, error);
}

bool applyWithin(const DrawingLoad &load, const DrawingFile &drawing, ZTGraphicsDocument &document,
                 DrawingReport *report, DrawingError *error)
{
    Loader loader(load, drawing, document);
    if (!buildWithin(loader, error))
        return false;
    loader.handOver();
    if (report != nullptr)
        report->missingFonts = loader.missingFonts();
    return true;
}

} // namespace hostkit
