#include <hostkit/import/DrawingImport.h>

#include <hostkit/import/ImportParts_p.h>
#include <hostkit/import/ImportText_p.h>
#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemExtras.h>
#include <hostkit/text/FontPresence.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QFontInfo>

#include <algorithm>
#include <cmath>
#include <limits>

namespace hostkit {

namespace {

using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorPath;
using vectorkit::VectorShape;
using vectorkit::VectorText;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::DrawingImport)
};

/** Of the time: to take the drawing apart. */
constexpr double kPartsShare = 0.2;

bool isDot(const VectorPath &path)
{
    constexpr double kNothingMm = 1e-9;
    const QRectF box = path.boundsMm();
    return box.width() < kNothingMm && box.height() < kNothingMm;
}

/** What stands for a dot: a short line about its place. */
VectorPath markableDot(const QPointF &placeMm)
{
    const QPointF half(kDotMm / 2.0, 0.0);
    return VectorPath::polyline({placeMm - half, placeMm + half});
}

/** A path whose curves are straight pieces. */
VectorPath straightened(const VectorPath &path, double toleranceMm)
{
    QVector<QPointF> points = path.flattened(toleranceMm);
    if (path.isClosed() && points.size() > 1 && points.first() == points.last())
        points.removeLast();
    const VectorPath straight = VectorPath::polyline(points, path.isClosed());
    return isDot(straight) ? markableDot(path.start()) : straight; // smaller than the tolerance
}

/** Paths as the library can hold them: without dots, and where asked for without curves. */
QVector<VectorPath> markable(const QVector<VectorPath> &paths, double toleranceMm, int *dots)
{
    QVector<VectorPath> result;
    result.reserve(paths.size());
    for (const VectorPath &path : paths) {
        if (path.isEmpty())
            continue;
        if (isDot(path)) {
            result.append(markableDot(path.start()));
            ++*dots;
        } else {
            result.append(toleranceMm > 0.0 ? straightened(path, toleranceMm) : path);
        }
    }
    return result;
}

/** Where the paths of a drawing are and its texts stand; null for a drawing of neither. */
QRectF extentMm(const VectorDrawing &drawing)
{
    QPolygonF corners;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes) {
            if (shape.paths.isEmpty())
                continue;
            const QRectF box = vectorkit::boundsOf(shape.paths);
            corners << box.topLeft() << box.bottomRight();
        }
        for (const VectorText &text : layer.texts)
            corners << text.positionMm;
    }
    return corners.boundingRect();
}

/** Not united(): it ignores boxes without a width or height. */
QRectF boxAround(const QRectF &a, const QRectF &b)
{
    return QRectF(QPointF(std::min(a.left(), b.left()), std::min(a.top(), b.top())),
                  QPointF(std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom())));
}

/** Brings the parts and texts of one drawing into a document. */
class DrawingImporter
{
public:
    DrawingImporter(ZTGraphicsDocument &target, const ImportOptions &importOptions)
        : m_document(target), m_options(importOptions)
    {
    }

    ImportResult import(const VectorDrawing &drawing)
    {
        QVector<ImportPart> parts;
        const auto takeApart = [this](double done) {
            return !m_options.progress || m_options.progress(done * kPartsShare);
        };
        if (!importParts(drawing, m_options, takeApart, &parts))
            return takeBack();
        m_total = parts.size() + drawing.textCount();
        groupLayers(drawing);
        makeRoom(extentMm(drawing));
        for (const ImportPart &part : parts) {
            addPart(part);
            if (!goOn())
                return takeBack();
        }
        for (int layer = 0; layer < drawing.layers.size(); ++layer) {
            for (const VectorText &text : drawing.layers[layer].texts) {
                addText(text, layer);
                if (!goOn())
                    return takeBack();
            }
        }
        if (hasCentre())
            moveTo(*m_options.centreMm);
        return m_result;
    }

private:
    bool hasCentre() const
    {
        return m_options.centreMm && qIsFinite(m_options.centreMm->x()) &&
               qIsFinite(m_options.centreMm->y());
    }

    bool goOn()
    {
        ++m_done;
        const double share = double(m_done) / m_total;
        return !m_options.progress || m_options.progress(kPartsShare + (1.0 - kPartsShare) * share);
    }

    ImportResult takeBack()
    {
        m_document.scene()->clearSelection();
        for (ZTAbstractGraphicsItem *item : qAsConst(m_result.items))
            item->setSelected(true);
        m_document.itemMag()->removeSelect();
        ImportResult nothing;
        nothing.isCancelled = true;
        return nothing;
    }

    /**
     * The scene holds the places of items within its edges, each by itself: what lies beyond them
     * comes to the middle as a whole, and a scene that is too small for it grows.
     */
    void makeRoom(const QRectF &boxMm)
    {
        constexpr double kRoomForLetters = 0.9;
        ZTGraphicsScene &scene = *m_document.scene();
        const QTransform toPx = ZTCoord::getInstance()->getMm2pixTransform();
        const QRectF boxPx = toPx.mapRect(boxMm);
        QRectF roomPx = QTransform::fromScale(kRoomForLetters, kRoomForLetters)
                            .mapRect(scene.sceneRect().translated(-scene.sceneRect().center()));
        roomPx.translate(scene.sceneRect().center());
        if (roomPx.contains(boxPx.topLeft()) && roomPx.contains(boxPx.bottomRight()))
            return;
        m_result.shiftMm = toPx.inverted().map(scene.sceneRect().center()) - boxMm.center();
        QRectF neededPx = QTransform::fromScale(2.0 - kRoomForLetters, 2.0 - kRoomForLetters)
                              .mapRect(boxPx.translated(-boxPx.center()));
        neededPx.translate(scene.sceneRect().center());
        scene.setSceneRect(scene.sceneRect() | neededPx);
    }

    /** A group a layer, where several come in piece by piece. */
    void groupLayers(const VectorDrawing &drawing)
    {
        if (m_options.split != ImportSplit::Outline || drawing.layers.size() < 2)
            return;
        qint32 last = 0;
        for (QGraphicsItem *candidate : m_document.scene()->items()) {
            if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate)) {
                for (const qint32 group : itemExtras(*item).groupPath)
                    last = std::max(last, group);
            }
        }
        m_firstGroup = last + 1;
    }

    void nameItem(ZTAbstractGraphicsItem &item, const QString &name, int layer) const
    {
        ItemExtras extras = itemExtras(item);
        extras.name = name;
        if (m_firstGroup > 0 && layer >= 0)
            extras.groupPath = {m_firstGroup + layer};
        setItemExtras(item, extras);
    }

    void addPart(const ImportPart &part)
    {
        const QVector<VectorPath> paths =
            markable(part.paths, m_options.toleranceMm, &m_result.dots);
        const QPointF cornerMm = vectorkit::boundsOf(part.paths).topLeft();
        ZTAbstractGraphicsItem *item = addGraphic(m_document, paths, cornerMm);
        if (item == nullptr)
            return;
        if (!m_result.shiftMm.isNull())
            item->setPos(
                ZTCoord::getInstance()->getMm2pixTransform().map(cornerMm + m_result.shiftMm));
        item->setPenId(part.pen);
        if (m_options.fill && !part.isOpen)
            item->setFillParam(*m_options.fill);
        nameItem(*item, part.name, part.layer);
        m_result.items.append(item);
        m_result.openShapes += part.isOpen ? 1 : 0;
        m_result.mergedPens += part.hasOtherPens ? 1 : 0;
    }

    void addText(const VectorText &text, int layer)
    {
        const ImportText wanted = importText(text);
        if (wanted.lettersMm.isEmpty())
            return;
        auto *item = qobject_cast<ZTGraphicsTextItem *>(
            m_document.itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        if (item == nullptr)
            return;
        item->setFont(wanted.font);
        item->setFontType(FontType::doubleLine);
        item->setFixedText(text.text);
        item->setTransformParam(wanted.form);
        item->setPenId(text.pen > 0 ? text.pen : penForColor(text.color, m_options.pens));
        // The library lays out a text by its own rule: what counts is where its letters come to.
        const QTransform place =
            QTransform::fromTranslate(m_result.shiftMm.x(), m_result.shiftMm.y()) *
            ZTCoord::getInstance()->getMm2pixTransform();
        QRectF wantedPx;
        for (const QPolygonF &polygon : wanted.lettersMm.toSubpathPolygons(place))
            wantedPx |= polygon.boundingRect();
        item->setPos(wantedPx.center() - item->getShapeBase()->getLines().boundingRect().center());
        nameItem(*item, QString(), layer);
        m_result.items.append(item);
        ++m_result.texts;
    }

    void moveTo(const QPointF &centreMm)
    {
        QRectF boxPx;
        for (ZTAbstractGraphicsItem *item : m_result.items) {
            const QRectF linesPx =
                item->getShapeBase()->getLines().boundingRect().translated(item->pos());
            if (boxPx.isNull()) {
                boxPx = linesPx;
            } else {
                boxPx = boxAround(boxPx, linesPx);
            }
        }
        const QPointF wayPx =
            ZTCoord::getInstance()->getMm2pixTransform().map(centreMm) - boxPx.center();
        ZTGraphicsScene &scene = *m_document.scene();
        scene.setSceneRect(scene.sceneRect() | boxPx.translated(wayPx));
        for (ZTAbstractGraphicsItem *item : m_result.items)
            item->setPos(item->pos() + wayPx);
        m_result.shiftMm += ZTCoord::getInstance()->getPix2MmTransform().map(wayPx);
    }

    ZTGraphicsDocument &m_document;
    const ImportOptions &m_options;
    ImportResult m_result;
    int m_total = 0;
    int m_done = 0;
    qint32 m_firstGroup = 0; ///< 0: no groups
};

void stretch(VectorDrawing *drawing, double scaleX, double scaleY)
{
    const QTransform larger = QTransform::fromScale(scaleX, scaleY);
    for (VectorLayer &layer : drawing->layers) {
        for (VectorShape &shape : layer.shapes) {
            for (VectorPath &path : shape.paths)
                path = path.transformed(larger);
        }
        for (VectorText &text : layer.texts)
            stretchText(&text, larger);
    }
    drawing->declaredSizeMm =
        QSizeF(drawing->declaredSizeMm.width() * scaleX, drawing->declaredSizeMm.height() * scaleY);
}

/** Whose shapes and texts go by their colours alone. */
VectorDrawing withoutPens(VectorDrawing drawing)
{
    for (VectorLayer &layer : drawing.layers) {
        for (VectorShape &shape : layer.shapes)
            shape.pen = 0;
        for (VectorText &text : layer.texts)
            text.pen = 0;
    }
    return drawing;
}

} // namespace

QColor screenPenColor(int pen)
{
    static const char *const kColors[kScreenPens] = {
        "black",   "blue",   "cyan",   "goldenrod", "navy",   "green",     "grey",   "khaki",
        "magenta", "orange", "orchid", "red",       "salmon", "turquoise", "yellow", "fuchsia"};
    const bool isKnown = pen >= 1 && pen <= kScreenPens;
    return QColor(QLatin1String(kColors[isKnown ? pen - 1 : 0]));
}

int penForColor(const QColor &color, const QMap<QRgb, int> &pens)
{
    if (!color.isValid())
        return 1;
    const auto chosen = pens.constFind(color.rgb());
    if (chosen != pens.constEnd())
        return chosen.value();
    int nearest = 1;
    int least = std::numeric_limits<int>::max();
    for (int pen = 1; pen <= kScreenPens; ++pen) {
        const QColor known = screenPenColor(pen);
        const int red = known.red() - color.red();
        const int green = known.green() - color.green();
        const int blue = known.blue() - color.blue();
        const int apart = red * red + green * green + blue * blue;
        if (apart < least) {
            least = apart;
            nearest = pen;
        }
    }
    return nearest;
}

QRectF arrivingBoxMm(const VectorDrawing &drawing, QVector<QPainterPath> *letters)
{
    QRectF boxMm = drawing.boundsMm();
    bool isFirst = drawing.pathCount() == 0;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorText &text : layer.texts) {
            const QPainterPath outlines = importText(text).lettersMm;
            if (letters != nullptr)
                letters->append(outlines);
            if (outlines.isEmpty())
                continue;
            boxMm = isFirst ? outlines.boundingRect() : boxAround(boxMm, outlines.boundingRect());
            isFirst = false;
        }
    }
    return boxMm;
}

void noteMissingFonts(VectorDrawing *drawing)
{
    QMap<QString, int> texts;
    for (const VectorLayer &layer : qAsConst(drawing->layers)) {
        for (const VectorText &text : layer.texts)
            ++texts[text.fontFamily];
    }
    for (auto family = texts.constBegin(); family != texts.constEnd(); ++family) {
        if (family.key().isEmpty() || hasSystemFont(family.key()))
            continue;
        drawing->note(vectorkit::VectorNote::Kind::Changed,
                      Texts::tr("font \"%1\", which is not installed here: \"%2\" stands in for it")
                          .arg(family.key(), QFontInfo(QFont(family.key())).family()),
                      QString(), family.value());
    }
}

bool fitDrawing(VectorDrawing *drawing, const QSizeF &sizeMm)
{
    const QRectF box = arrivingBoxMm(*drawing);
    const bool hasWidth = sizeMm.width() > 0.0;
    const bool hasHeight = sizeMm.height() > 0.0;
    if (!hasWidth && !hasHeight)
        return true;
    if ((hasWidth && !(box.width() > 0.0)) || (hasHeight && !(box.height() > 0.0)))
        return false;
    double scaleX = hasWidth ? sizeMm.width() / box.width() : 0.0;
    double scaleY = hasHeight ? sizeMm.height() / box.height() : 0.0;
    scaleX = hasWidth ? scaleX : scaleY;
    scaleY = hasHeight ? scaleY : scaleX;
    if (!std::isfinite(scaleX) || !std::isfinite(scaleY))
        return false;
    scaleDrawing(drawing, scaleX, scaleY);
    return true;
}

void scaleDrawing(VectorDrawing *drawing, double scaleX, double scaleY)
{
    if (scaleX == scaleY)
        drawing->scale(scaleX);
    else
        stretch(drawing, scaleX, scaleY);
}

ImportResult importDrawing(ZTGraphicsDocument &document, const VectorDrawing &drawing,
                           const ImportOptions &options)
{
    return DrawingImporter(document, options)
        .import(drawing.hasPens() ? drawing : withoutPens(drawing));
}

} // namespace hostkit
