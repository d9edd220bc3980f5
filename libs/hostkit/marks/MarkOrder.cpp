#include <hostkit/marks/MarkOrder.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace hostkit {

namespace {

/** Where the head comes to an object, and where the next way is reckoned from. */
struct Ends
{
    QPointF start;
    QPointF end;
    bool isKnown = false; ///< something is marked
};

/** Of outlines both are starts: that of the first one and, as the chain has it, of the last one. */
Ends endsOf(const ZTMarkObject &object)
{
    Ends ends;
    for (const QPolygonF &polygon : object.lines) {
        if (polygon.isEmpty())
            continue;
        if (!ends.isKnown)
            ends.start = polygon.first();
        ends.end = polygon.first();
        ends.isKnown = true;
    }
    if (!ends.isKnown && !object.fillLines.isEmpty())
        ends = {object.fillLines.first().p1(), object.fillLines.last().p2(), true};
    return ends;
}

/** Stands for an object in the chain, which looks at its lines and leaves its extent alone. */
ZTMarkObject standIn(const Ends &ends, int number)
{
    ZTMarkObject stand;
    stand.penId = 0;
    stand.lines = {QPolygonF(QVector<QPointF>{ends.start}), QPolygonF(QVector<QPointF>{ends.end})};
    stand.rect = QRectF(number, 0.0, 0.0, 0.0);
    return stand;
}

int numberOf(const ZTMarkObject &stand) { return static_cast<int>(stand.rect.x()); }

/** The numbers of all objects, in the order of marking. */
std::vector<int> markingOrder(const QVector<ZTMarkObject> &objects)
{
    ZTMarkGraph stands;
    std::vector<int> order;
    std::vector<int> empty;
    for (int i = 0; i < objects.size(); ++i) {
        const Ends ends = endsOf(objects[i]);
        if (ends.isKnown)
            stands.objects.append(standIn(ends, i));
        else
            empty.push_back(i);
    }
    ZTPointSort::getInstance()->markGraphSort(stands);
    for (const ZTMarkObject &stand : qAsConst(stands.objects))
        order.push_back(numberOf(stand));
    order.insert(order.end(), empty.begin(), empty.end());
    return order;
}

/** Whether every number from 0 on is there once. */
bool isWhole(std::vector<int> order, int count)
{
    std::sort(order.begin(), order.end());
    int expected = 0;
    const bool isRising = std::all_of(order.begin(), order.end(),
                                      [&expected](int number) { return number == expected++; });
    return isRising && expected == count;
}

} // namespace

std::vector<int> markOrder(const ZTMarkGraph &graph)
{
    std::vector<int> asDrawn(static_cast<size_t>(graph.objects.size()));
    std::iota(asDrawn.begin(), asDrawn.end(), 0);
    if (ZTPointSort::getInstance()->getShapeMarkSort() == EShapeSortType::ShapeSortNone)
        return asDrawn;
    std::vector<int> order = markingOrder(graph.objects);
    // An order that lost an object is none: better far ways than a part without a shape.
    return isWhole(order, graph.objects.size()) ? order : asDrawn;
}

void orderMarkGraph(ZTMarkGraph *graph)
{
    QVector<ZTMarkObject> ordered;
    ordered.reserve(graph->objects.size());
    for (const int number : markOrder(*graph))
        ordered.append(std::move(graph->objects[number]));
    graph->objects = std::move(ordered);
}

} // namespace hostkit
