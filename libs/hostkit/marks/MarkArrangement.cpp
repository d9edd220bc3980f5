#include <hostkit/marks/MarkArrangement.h>

#include <hostkit/marks/MarkOrder.h>
#include <hostkit/setup/ProcessState.h>

namespace hostkit {

namespace {

void dropOutlines(ZTMarkGraph &graph)
{
    for (ZTMarkObject &object : graph.objects)
        object.lines.clear();
}

ZTMarkObject moved(ZTMarkObject object, const QPointF &wayMark)
{
    for (QPolygonF &polygon : object.lines)
        polygon.translate(wayMark);
    for (QLineF &line : object.fillLines)
        line.translate(wayMark);
    object.rect.translate(wayMark);
    return object;
}

} // namespace

void enlargeMarkGraph(ZTMarkGraph *graph, double factor)
{
    const auto enlarged = [factor](const QRectF &rect) {
        return QRectF(rect.topLeft() * factor, rect.size() * factor);
    };
    for (ZTMarkObject &object : graph->objects) {
        for (QPolygonF &polygon : object.lines) {
            for (QPointF &point : polygon)
                point *= factor;
        }
        for (QLineF &line : object.fillLines)
            line.setPoints(line.p1() * factor, line.p2() * factor);
        object.rect = enlarged(object.rect);
    }
    graph->rect = enlarged(graph->rect);
}

void repeatMarkGraph(ZTMarkGraph *graph, int columns, int rows, const QSizeF &pitchMark)
{
    const QVector<ZTMarkObject> first = graph->objects;
    graph->objects.reserve(first.size() * columns * rows);
    for (int copy = 1; copy < columns * rows; ++copy) {
        const int column = copy % columns;
        const int row = copy / columns;
        const QPointF way(column * pitchMark.width(), row * pitchMark.height());
        for (const ZTMarkObject &object : first) {
            graph->objects.append(moved(object, way));
            graph->rect |= graph->objects.last().rect;
        }
    }
}

void arrangeMarkGraph(ZTMarkGraph graph, const MarkUnits &units, const MarkJobOptions &options,
                      MarkJobResult *result)
{
    const ProcessStateGuard former;
    ZTPointSort::getInstance()->setShapeMarkSort(options.order);
    const auto measure = [&](ZTMarkGraph measured) {
        if (!options.outline)
            dropOutlines(measured);
        return measureMarkPath(measured, units);
    };
    result->before = measure(graph);
    orderMarkGraph(&graph);
    if (!options.outline)
        dropOutlines(graph);
    result->after = measureMarkPath(graph, units);
    result->graph = std::move(graph);
}

} // namespace hostkit
