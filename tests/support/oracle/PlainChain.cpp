#include "PlainChain.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace testsupport {

namespace {

using Cost = std::function<double(const QPointF &, const QPointF &)>;

int choose(const QVector<ZTMarkObject> &remaining, const Cost &cost, const QPointF &current)
{
    double best = 999999999999999.0;
    int chosen = 0;
    for (int i = 0; i < remaining.size(); ++i) {
        const QList<QPolygonF> &lines = remaining.at(i).lines;
        if (lines.isEmpty())
            continue;
        if (lines.first().isEmpty())
            break;
        const double costHere = cost(current, lines.first().first());
        if (best > costHere) {
            best = costHere;
            chosen = i;
        }
    }
    return chosen;
}

void chain(ZTMarkGraph &graph, const Cost &cost, QPointF current)
{
    QVector<ZTMarkObject> remaining = graph.objects;
    QVector<ZTMarkObject> result(remaining.size());
    for (int i = 0; i < result.size(); ++i) {
        const int chosen = choose(remaining, cost, current);
        const QList<QPolygonF> lines = remaining.at(chosen).lines;
        result[i] = remaining.at(chosen);
        if (lines.isEmpty() || lines.last().isEmpty())
            break;
        current = lines.last().first();
        remaining.erase(remaining.begin() + chosen);
    }
    graph.objects = result;
}

} // namespace

void plainMarkGraphSort(ZTMarkGraph &graph, EShapeSortType kind)
{
    if (graph.objects.isEmpty() || graph.objects.first().lines.isEmpty() ||
        graph.objects.first().lines.first().isEmpty())
        return;
    const Cost largerOfBoth = [](const QPointF &a, const QPointF &b) {
        return std::max(std::abs(a.x() - b.x()), std::abs(a.y() - b.y()));
    };
    const Cost alongX = [](const QPointF &a, const QPointF &b) { return std::abs(a.x() - b.x()); };
    const Cost alongY = [](const QPointF &a, const QPointF &b) { return std::abs(a.y() - b.y()); };
    switch (kind) {
    case EShapeSortType::ShapeSortNearest:
        chain(graph, largerOfBoth, {30000, 30000});
        break;
    case EShapeSortType::ShapeSortXFromMin:
        chain(graph, alongX, {-30000, 0});
        break;
    case EShapeSortType::ShapeSortXFromMax:
        chain(graph, alongX, {30000, 0});
        break;
    case EShapeSortType::ShapeSortYFromMin:
        chain(graph, alongY, {0, -30000});
        break;
    case EShapeSortType::ShapeSortYFromMax:
        chain(graph, alongY, {0, 30000});
        break;
    case EShapeSortType::ShapeSortNone:
        break;
    }
}

} // namespace testsupport
