#include <jobkit/marks/MarkGraphItems.h>

#include <hostkit/import/DrawingImport.h>
#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/marks/MarkFindings.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/text/StrokeFont.h>

#include <QtCore/QLineF>

#include <limits>

namespace jobkit {

namespace {

QVector<QPolygonF> toMm(QVector<QPolygonF> runs, const hostkit::MarkUnits &units)
{
    for (QPolygonF &run : runs) {
        for (QPointF &point : run)
            point = {units.toMm(point.x()), units.toMm(point.y())};
    }
    return runs;
}

QString missingCharactersOf(const ZTAbstractGraphicsItem &shape)
{
    const ZTShapeText *text = hostkit::textOf(shape);
    if (text == nullptr)
        return {};
    const hostkit::MissingCharacters missing =
        hostkit::missingCharacters(text->text(), text->getFont());
    return (missing.noGlyph + missing.notEncoded).join(QString());
}

JobHatch hatchOf(const ZTMarkObject &object, const hostkit::HatchLayer &layer,
                 const hostkit::MarkUnits &units)
{
    JobHatch hatch;
    hatch.number = layer.hatch;
    hatch.pen = layer.pen;
    hatch.passes = layer.passes;
    hatch.turn = layer.turn;
    hatch.isOneWay = layer.isOneWay;
    hatch.moment = layer.moment;
    hatch.runsMm = toMm(hatchRuns(object.fillLines.mid(layer.firstLine, layer.lines)), units);
    return hatch;
}

/**
 * What came in as a dot, and is held as a short line, is a dot for the head again, which its pen
 * marks for its time. Whether there is any.
 */
bool takeDots(const ZTAbstractGraphicsItem &shape, JobItem *item)
{
    constexpr double kMostMm = hostkit::kDotMm * 1.01;
    bool hasDots = false;
    if (hostkit::graphicOf(shape) == nullptr)
        return hasDots;
    for (QPolygonF &run : item->outlinesMm) {
        if (run.size() != 2 || QLineF(run[0], run[1]).length() > kMostMm)
            continue;
        const QPointF middle = (run[0] + run[1]) / 2.0;
        run = QPolygonF(QVector<QPointF>{middle});
        hasDots = true;
    }
    return hasDots;
}

QVector<hostkit::HatchLayer> oneLayerOf(const ZTMarkObject &object)
{
    hostkit::HatchLayer all;
    all.pen = object.penId;
    all.lines = object.fillLines.size();
    return {all};
}

} // namespace

QVector<JobItem> itemsOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units)
{
    QVector<QVector<hostkit::HatchLayer>> layers;
    for (const ZTMarkObject &object : graph.objects)
        layers.append(oneLayerOf(object));
    return itemsOf(graph, units, layers);
}

QVector<JobItem> itemsOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units,
                         const QVector<QVector<hostkit::HatchLayer>> &layers)
{
    QVector<JobItem> items;
    items.reserve(graph.objects.size());
    for (int i = 0; i < graph.objects.size(); ++i) {
        const ZTMarkObject &object = graph.objects[i];
        JobItem item;
        item.object = items.size();
        item.pen = object.penId;
        item.outlinesMm = toMm(object.lines.toVector(), units);
        for (const hostkit::HatchLayer &layer : layers[i]) {
            if (layer.lines > 0)
                item.hatches.append(hatchOf(object, layer, units));
        }
        items.append(item);
    }
    return items;
}

void describeShape(const ZTAbstractGraphicsItem &shape, JobItem *item)
{
    item->hasDots = takeDots(shape, item) || hostkit::isCode(shape);
    item->isSerialUsedUp = hostkit::isUsedUp(shape);
    item->missingCharacters = missingCharactersOf(shape);
}

QVector<JobItem> itemsOfDrawing(const ZTGraphicsDocument &document)
{
    const hostkit::MarkItems shapes = hostkit::markedItems(document);
    hostkit::MarkGraphBuilder builder(document, shapes, EShapeSortType::ShapeSortNone);
    builder.work(std::numeric_limits<int>::max());
    const ZTMarkGraph graph = builder.takeUnordered();
    QVector<JobItem> items =
        itemsOf(graph, hostkit::MarkUnits::of(*document.itemMag()), builder.layers());
    for (int i = 0; i < items.size(); ++i) {
        items[i].name = hostkit::shapeName(*shapes[i]);
        describeShape(*shapes[i], &items[i]);
    }
    return items;
}

} // namespace jobkit
