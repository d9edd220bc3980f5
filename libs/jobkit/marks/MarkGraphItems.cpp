#include <jobkit/marks/MarkGraphItems.h>

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

} // namespace

QVector<JobItem> itemsOf(const ZTMarkGraph &graph, const hostkit::MarkUnits &units)
{
    QVector<JobItem> items;
    items.reserve(graph.objects.size());
    for (const ZTMarkObject &object : graph.objects) {
        JobItem item;
        item.object = items.size();
        item.pen = object.penId;
        item.outlinesMm = toMm(object.lines.toVector(), units);
        if (!object.fillLines.isEmpty()) {
            JobHatch hatch;
            hatch.pen = object.penId;
            hatch.runsMm = toMm(hatchRuns(object.fillLines), units);
            item.hatches.append(hatch);
        }
        items.append(item);
    }
    return items;
}

} // namespace jobkit
