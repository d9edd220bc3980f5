#include <hostkit/drawing/DrawingLoader.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/ItemGroups.h>
#include <hostkit/drawing/ShapeRecords_p.h>
#include <hostkit/items/FontCheck.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/items/StrokeFontHeights.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <vector>

namespace hostkit {

namespace {

constexpr qint64 kPieceMs = 40; // between two calls of the progress function
constexpr int kBatch = 64;      // records built before their hatches are laid out side by side

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingLoader)
};

/** Big-endian and of the drawing's version, as every stream over a drawing's bytes is. */
void prepare(QDataStream &stream) { stream.setVersion(kStreamVersion); }

void restore(ZTShapeBase &shape, const ShapeBaseFields &kept)
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

/** Lets the drawing's set-up hold while its shapes are rebuilt, and no longer. */
class BorrowedSetup
{
public:
    BorrowedSetup(const DrawingSetup &borrowed, const DrawingSetup &ownSetup,
                  const QVector<StrokeFontHeight> &ownHeights)
        : m_setup(ownSetup), m_heights(ownHeights)
    {
        borrowed.applyToProcess();
    }
    ~BorrowedSetup()
    {
        m_setup.applyToProcess();
        setStrokeFontHeights(m_heights);
    }
    BorrowedSetup(const BorrowedSetup &) = delete;
    BorrowedSetup &operator=(const BorrowedSetup &) = delete;

private:
    const DrawingSetup &m_setup;
    const QVector<StrokeFontHeight> &m_heights;
};

/** Puts the registry of variant texts and the next id in the place of those there are. */
void replaceCounters(const QByteArray &counters, ZTGraphicsDocument &document)
{
    // By the library's own loader, as a stream that announces no item.
    QByteArray bytes = counters;
    bytes.append(int(sizeof(qint32)), '\0');
    QDataStream stream(bytes);
    prepare(stream);
    ZTVariantTextManager::getInstance()->deleteAll();
    document.itemMag()->load(stream);
}

/** Which shape uses which entry of the registry, in the order in which a flush gives them texts. */
struct RegistryUse
{
    VariantTextUse use;
    ZTTextShapeBase *shape = nullptr;
};

void addUses(std::vector<RegistryUse> uses)
{
    std::stable_sort(uses.begin(), uses.end(),
                     [](const auto &a, const auto &b) { return a.use.turn < b.use.turn; });
    for (const RegistryUse &one : uses)
        ZTVariantTextManager::getInstance()->appendItem(one.use.entryId, one.shape);
}

/** The registry and the next id as they are, to be put back. */
class KeptCounters
{
public:
    explicit KeptCounters(ZTGraphicsDocument &kept) : m_document(kept)
    {
        ZTVariantTextManager &registry = *ZTVariantTextManager::getInstance();
        QDataStream stream(&m_counters, QIODevice::WriteOnly);
        prepare(stream);
        registry.save(stream);
        stream << static_cast<qint32>(m_document.itemMag()->getNextShapeId());
        for (const int id : registry.getIds()) {
            qint32 turn = 0;
            for (ZTTextShapeBase *shape : registry.getShapes(id))
                m_uses.push_back({{id, turn++}, shape});
        }
    }

    void putBack() const
    {
        replaceCounters(m_counters, m_document);
        addUses(m_uses);
    }

private:
    ZTGraphicsDocument &m_document;
    QByteArray m_counters;
    std::vector<RegistryUse> m_uses;
};

/** Builds the items of a drawing, in no scene, and hands them over at the end. */
class Loader
{
public:
    Loader(const DrawingLoad &how, const DrawingFile &source, ZTGraphicsDocument &target)
        : m_load(how), m_drawing(source), m_document(target), m_ownSetup(DrawingSetup::of(target)),
          m_ownHeights(strokeFontHeights(shapeItemsOf(target))), m_extras(source.extras)
    {
    }

    bool build(Failure *failure);
    void handOver();
    void insert(InsertedDrawing *inserted);
    DrawingReport report() const;

private:
    using Item = std::unique_ptr<ZTAbstractGraphicsItem>;

    bool isBuilt() const;
    bool buildSome(Failure *failure);
    void buildBatch(const QElapsedTimer &sinceStart);
    void buildNext();
    bool weighBatch(const QElapsedTimer &sinceStart, Failure *failure);
    void layOutBatch(int budgetMs) const;
    void keepForeign(int place);
    void fill(ZTAbstractGraphicsItem &item, const DrawingItem &record);
    void fillShape(ZTAbstractGraphicsItem &item, const DrawingItem &record);
    bool takeGraphic(ZTShapeBase &shape, const DrawingItem &record);
    void takeDrawing(ZTShapeBase &shape, const DrawingItem &record);
    void takeText(ZTShapeText &text, const DrawingItem &record);
    void takeUses(ZTShapeBase &shape, const DrawingItem &record);
    void redrawStrokeTexts();
    void takeOwnPlace();
    void takeOwnScale();
    void addItems();
    void takeBack(int rows);
    void removeOldDrawing(int rows, const QList<ZTAbstractGraphicsItem *> &old);

    const DrawingLoad &m_load;
    const DrawingFile &m_drawing;
    ZTGraphicsDocument &m_document;
    const DrawingSetup m_ownSetup;
    const QVector<StrokeFontHeight> m_ownHeights;
    DrawingExtras m_extras;
    int m_next = 0; ///< record to be built
    std::vector<Item> m_items;
    std::size_t m_weighed = 0;               ///< items whose pieces are counted
    QList<ZTAbstractGraphicsItem *> m_added; ///< those that the scene has
    std::vector<RegistryUse> m_uses;
    qint64 m_pieces = 0; ///< points and hatch lines of the weighed items
    FontCheck m_fonts;
};

bool Loader::build(Failure *failure)
{
    if (!checkDrawing(m_drawing, failure))
        return false;
    const int total = m_drawing.items.size();
    m_items.reserve(static_cast<std::size_t>(total));
    while (!isBuilt()) {
        if (!buildSome(failure))
            return false;
        if (m_load.progress && !m_load.progress(m_next, total))
            return fail(failure, Failure::Kind::Cancelled, Texts::tr("cancelled"));
    }
    return true;
}

bool Loader::isBuilt() const
{
    return m_next == m_drawing.items.size() && m_weighed == m_items.size();
}

/** As much as fits between two calls of the progress function. */
bool Loader::buildSome(Failure *failure)
{
    const BorrowedSetup borrowed(m_drawing.meta.setup, m_ownSetup, m_ownHeights);
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (!isBuilt() && !sinceStart.hasExpired(kPieceMs)) {
        if (m_weighed == m_items.size())
            buildBatch(sinceStart);
        if (!weighBatch(sinceStart, failure))
            return false;
    }
    return true;
}

void Loader::buildBatch(const QElapsedTimer &sinceStart)
{
    const int end = std::min(m_next + kBatch, m_drawing.items.size());
    while (m_next < end && !sinceStart.hasExpired(kPieceMs))
        buildNext();
}

void Loader::buildNext()
{
    const int place = m_next++;
    const DrawingItem &record = m_drawing.items[place];
    Item item(ZTGraphicsItemFactory::create(record.kind.toStdString()));
    if (!item || item->getShapeBase() == nullptr) {
        keepForeign(place);
        return;
    }
    fill(*item, record);
    m_items.push_back(std::move(item));
}

/**
 * Counts what was built, and ends where it has become too much: small records can ask for shapes
 * that are each within the library's limits and together beyond any memory.
 */
bool Loader::weighBatch(const QElapsedTimer &sinceStart, Failure *failure)
{
    layOutBatch(static_cast<int>(std::max<qint64>(1, kPieceMs - sinceStart.elapsed())));
    while (m_weighed < m_items.size() && !sinceStart.hasExpired(kPieceMs)) {
        const ZTShapeBase &shape = *m_items[m_weighed++]->getShapeBase();
        m_pieces += shape.getLines().elementCount() + shape.getFillLines().size();
        if (m_pieces > m_load.maxPieces)
            return fail(
                failure, Failure::Kind::NotPossible,
                Texts::tr("holds more than %1 points and hatch lines").arg(m_load.maxPieces));
    }
    return true;
}

/** Side by side, what would otherwise be laid out as it is counted. */
void Loader::layOutBatch(int budgetMs) const
{
    QVector<const ZTShapeBase *> shapes;
    for (std::size_t i = m_weighed; i < m_items.size(); ++i)
        shapes << m_items[i]->getShapeBase();
    ZTShapeBase::layOutHatches(shapes, budgetMs);
}

void Loader::keepForeign(int place)
{
    ForeignItem kept{place, m_drawing.items[place], {}};
    qint32 number = -1;
    if (numberFromBytes(kept.item.fields.take(itemfield::kDrawing), &number))
        kept.drawing = m_drawing.drawings[number];
    m_extras.foreignItems << kept;
}

void Loader::fill(ZTAbstractGraphicsItem &item, const DrawingItem &record)
{
    fillShape(item, record);
    setPosExactly(item, record.posPx);
    item.setShapeType(record.type);
    if (record.kind != ShapeType2String(record.type))
        setItemKind(item, record.kind);
    QSizeF sizePx;
    if (sizeFromBytes(record.fields.value(itemfield::kSize), &sizePx))
        item.setSize(sizePx);
    double zValue = 0.0;
    if (realFromBytes(record.fields.value(itemfield::kZValue), &zValue))
        item.setZValue(zValue);
    setItemExtras(item, extrasFromFields(extraFieldsOf(record)));
    item.getShapeBase()->paint(); // with all its hatches, so that they count
}

void Loader::fillShape(ZTAbstractGraphicsItem &item, const DrawingItem &record)
{
    ZTShapeBase &shape = *item.getShapeBase();
    if (!takeGraphic(shape, record)) {
        QDataStream stream(record.shape);
        prepare(stream);
        item.load(stream);
    }
    takeDrawing(shape, record);
    ShapeBaseFields base;
    if (baseFromBytes(record.fields.value(itemfield::kBase), &base))
        restore(shape, base);
    auto *line = dynamic_cast<ZTLineShape *>(&shape);
    QLineF lineMm;
    if (line != nullptr && lineFromBytes(record.fields.value(itemfield::kLine), &lineMm))
        line->setLine(lineMm);
    if (ZTShapeText *text = textOf(item))
        takeText(*text, record);
    takeUses(shape, record);
}

/**
 * An imported drawing comes with the file. Without it the library opens the file behind the path,
 * as it does; but a path may name a pipe or a device that never ends.
 */
bool Loader::takeGraphic(ZTShapeBase &shape, const DrawingItem &record)
{
    auto *graphic = dynamic_cast<ZTVecGraph *>(&shape);
    if (graphic == nullptr || libraryKind(record.kind) != ShapeType::VecGraph)
        return false;
    QString path;
    QDataStream stream(record.shape);
    prepare(stream);
    stream >> path;
    const QFileInfo file(path);
    if (m_drawing.isBare && (!file.exists() || file.isFile()))
        return false;
    graphic->setDrawing(QPainterPath(), path);
    return true;
}

void Loader::takeDrawing(ZTShapeBase &shape, const DrawingItem &record)
{
    auto *graphic = dynamic_cast<ZTVecGraph *>(&shape);
    if (graphic == nullptr)
        return;
    qint32 number = -1;
    if (numberFromBytes(record.fields.value(itemfield::kDrawing), &number))
        graphic->setDrawing(m_drawing.drawings[number], graphic->getImagePath());
    graphic->paint();
}

/**
 * Loading gives a text the rectangle of its font; what was saved may be another one. And a text
 * that names no stroke fonts keeps those that every new text has at hand.
 */
void Loader::takeText(ZTShapeText &text, const DrawingItem &record)
{
    m_fonts.missingFor(text);
    ZTShxFontParam strokeFont = text.getFont().shxFont;
    const bool isNamed = !strokeFont.enName.isEmpty() && !strokeFont.zhName.isEmpty();
    if (!isNamed && strokeFont.parser.getTextHeight() != 0.0) {
        strokeFont.parser = ZTRegBigFontShxParser();
        text.setFont(strokeFont);
    }
    if (libraryKind(record.kind) != ShapeType::Text)
        return;
    QRectF savedMm;
    QDataStream stream(record.shape);
    prepare(stream);
    stream >> savedMm;
    if (text.getRect() == savedMm)
        return;
    text.setRect(savedMm);
    text.paint();
}

void Loader::takeUses(ZTShapeBase &shape, const DrawingItem &record)
{
    auto *text = dynamic_cast<ZTTextShapeBase *>(&shape);
    QVector<VariantTextUse> found;
    if (text == nullptr || !usesFromBytes(record.fields.value(itemfield::kVariants), &found))
        return;
    for (const VariantTextUse &use : found)
        m_uses.push_back({use, text});
}

/** Whatever fails here, the old drawing is as it was: nothing of it goes before all is in. */
void Loader::handOver()
{
    const KeptCounters ownCounters(m_document);
    const QVector<ZTAbstractGraphicsItem *> before = shapeItemsOf(m_document);
    const QList<ZTAbstractGraphicsItem *> old(before.begin(), before.end());
    auto *model = qobject_cast<ZTItemModel *>(m_document.itemMag()->itemModel());
    const int rows = model->rowCount();
    try {
        takeOwnPlace();
        addItems();
        replaceCounters(m_drawing.counters, m_document);
        addUses(m_uses);
        setDrawingExtras(m_document, m_extras);
    } catch (...) {
        takeBack(rows);
        ownCounters.putBack();
        m_ownSetup.applyTo(m_document);
        setStrokeFontHeights(m_ownHeights);
        throw;
    }
    removeOldDrawing(rows, old);
}

/** Takes out what of the new items is in already, the rows behind the first ones included. */
void Loader::takeBack(int rows)
{
    QAbstractItemModel *model = m_document.itemMag()->itemModel();
    model->removeRows(rows, model->rowCount() - rows);
    m_document.itemMag()->scene()->deleteItems(m_added);
}

/** The new items beside the old ones; whatever fails here, the drawing is as it was. */
void Loader::insert(InsertedDrawing *inserted)
{
    const int rows = m_document.itemMag()->itemModel()->rowCount();
    try {
        takeOwnScale();
        QVector<ZTAbstractGraphicsItem *> built;
        for (const Item &item : m_items)
            built << item.get();
        FreeGroupIds freeIds(m_document);
        const RenewedGroups renewed = renewGroups(built, &freeIds);
        m_added.reserve(built.size());
        for (Item &item : m_items) {
            m_document.itemMag()->insertItem(item.get());
            m_added << item.release(); // the scene's now
        }
        inserted->items = built;
        for (auto id = renewed.begin(); id != renewed.end(); ++id) {
            if (m_extras.groupNames.contains(id.key()))
                inserted->groupNames.insert(id.value(), m_extras.groupNames.value(id.key()));
        }
    } catch (...) {
        takeBack(rows);
        throw;
    }
}

/** Millimetres stay millimetres where a pixel is of another size, curves are as fine as others. */
void Loader::takeOwnScale()
{
    const auto pxPerMm = [](const DrawingSetup &setup) {
        return setup.height / setup.physicalHeight * setup.displayRatio;
    };
    const double factor = pxPerMm(m_ownSetup) / pxPerMm(m_drawing.meta.setup);
    const bool isAsFine = m_ownSetup.curveToleranceMm == m_drawing.meta.setup.curveToleranceMm;
    if (factor != 1.0 || !isAsFine) {
        for (const Item &item : m_items) {
            item->setPos(item->pos() * factor);
            item->setTransformParam(QTransform(item->getTransformParam())); // builds it anew
        }
    }
    redrawStrokeTexts();
}

/** The process and the document as the drawing's shapes need them. */
void Loader::takeOwnPlace()
{
    m_drawing.meta.setup.applyTo(m_document);
    setStrokeFontHeights(m_drawing.fontHeights);
    redrawStrokeTexts();
}

void Loader::addItems()
{
    ZTGraphicsScene *scene = m_document.itemMag()->scene();
    auto *model = qobject_cast<ZTItemModel *>(m_document.itemMag()->itemModel());
    m_added.reserve(static_cast<int>(m_items.size()));
    for (Item &item : m_items) {
        scene->addItem(item.get());
        m_added << item.release(); // the scene's now
        model->insert(m_added.last()->getShapeType(), m_added.last());
    }
}

void Loader::removeOldDrawing(int rows, const QList<ZTAbstractGraphicsItem *> &old)
{
    m_document.undoStack()->clear();
    m_document.itemMag()->itemModel()->removeRows(0, rows);
    m_document.itemMag()->scene()->deleteItems(old);
    m_document.itemMag()->scene()->update(QRectF());
}

void Loader::redrawStrokeTexts()
{
    for (const auto &item : m_items) {
        ZTShapeText *text = textOf(*item);
        if (text == nullptr || text->getFont().fontType != FontType::singleLine)
            continue;
        text->setUpdate(1);
        text->paint();
    }
}

DrawingReport Loader::report() const
{
    DrawingReport told;
    told.missingFonts = m_fonts.missing();
    for (const ForeignItem &kept : m_extras.foreignItems)
        ++told.unknownKinds[QString::fromUtf8(kept.item.kind)];
    return told;
}

/** Builds a drawing and lets `finish` put it into the document, whatever is thrown meanwhile. */
template <class Finish>
bool buildAnd(Loader &loader, Failure *failure, const Finish &finish)
{
    // Qt and shapes throw when there is no memory; what was built so far makes room again.
    try {
        if (!loader.build(failure))
            return false;
        finish();
        return true;
    } catch (const std::bad_alloc &) {
        return fail(failure, Failure::Kind::NotPossible,
                    Texts::tr("needs more memory than there is"));
    } catch (const std::exception &problem) {
        return fail(failure, Failure::Kind::NotPossible,
                    Texts::tr("cannot be built: %1").arg(QString::fromLocal8Bit(problem.what())));
    } catch (...) {
        return fail(failure, Failure::Kind::NotPossible, Texts::tr("cannot be built"));
    }
}

} // namespace

bool applyDrawing(const DrawingFile &drawing, ZTGraphicsDocument &document, const DrawingLoad &load,
                  DrawingReport *report, Failure *failure)
{
    Loader loader(load, drawing, document);
    return buildAnd(loader, failure, [&] {
        const DrawingReport told = loader.report();
        loader.handOver();
        if (report != nullptr)
            *report = told;
    });
}

bool insertDrawing(const DrawingFile &drawing, ZTGraphicsDocument &document,
                   const DrawingLoad &load, InsertedDrawing *inserted, Failure *failure)
{
    Loader loader(load, drawing, document);
    return buildAnd(loader, failure, [&] {
        InsertedDrawing there;
        there.report = loader.report();
        loader.insert(&there);
        *inserted = there;
    });
}

} // namespace hostkit
