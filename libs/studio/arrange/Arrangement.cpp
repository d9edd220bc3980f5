#include <studio/arrange/Arrangement.h>

#include <algorithm>

namespace studio {

namespace {

/** A unit and where it lies along the direction in which units are spread. */
struct Span
{
    const ShapeUnit *unit;
    double from;
    double length;

    double middle() const { return from + length / 2; }
};

QPointF shiftInto(const QRectF &withinPx, const QRectF &boxPx, Qt::Alignment alignment)
{
    QPointF shiftPx;
    if (alignment.testFlag(Qt::AlignLeft))
        shiftPx.setX(withinPx.left() - boxPx.left());
    if (alignment.testFlag(Qt::AlignRight))
        shiftPx.setX(withinPx.right() - boxPx.right());
    if (alignment.testFlag(Qt::AlignHCenter))
        shiftPx.setX(withinPx.center().x() - boxPx.center().x());
    if (alignment.testFlag(Qt::AlignTop))
        shiftPx.setY(withinPx.top() - boxPx.top());
    if (alignment.testFlag(Qt::AlignBottom))
        shiftPx.setY(withinPx.bottom() - boxPx.bottom());
    if (alignment.testFlag(Qt::AlignVCenter))
        shiftPx.setY(withinPx.center().y() - boxPx.center().y());
    return shiftPx;
}

void moveBy(const ShapeUnit &unit, const QPointF &shiftPx, QVector<ItemMove> *moves)
{
    for (ShapeItem *item : unit.items) {
        const QPointF toPx = item->pos() + shiftPx;
        if (toPx != item->pos())
            moves->append({item, toPx});
    }
}

QVector<Span> spansOf(const QVector<ShapeUnit> &units, Qt::Orientation direction, Spread spread)
{
    QVector<Span> spans;
    for (const ShapeUnit &unit : units) {
        const QRectF boxPx = unit.boxPx();
        spans.append(direction == Qt::Horizontal ? Span{&unit, boxPx.left(), boxPx.width()}
                                                 : Span{&unit, boxPx.top(), boxPx.height()});
    }
    std::stable_sort(spans.begin(), spans.end(), [spread](const Span &a, const Span &b) {
        return spread == Spread::Gaps ? a.from < b.from : a.middle() < b.middle();
    });
    return spans;
}

/** Where the spans begin when they are spread. */
QVector<double> spreadStarts(const QVector<Span> &spans, Spread spread)
{
    const Span &first = spans.first();
    const Span &last = spans.last();
    const int steps = spans.size() - 1;
    double inner = 0.0; // lengths between the outermost two
    for (int i = 1; i < steps; ++i)
        inner += spans[i].length;
    const double gap = (last.from - first.from - first.length - inner) / steps;
    const double pitch = (last.middle() - first.middle()) / steps;
    QVector<double> starts;
    double next = first.from;
    for (int i = 0; i <= steps; ++i) {
        starts.append(spread == Spread::Gaps ? next
                                             : first.middle() + i * pitch - spans[i].length / 2);
        next += spans[i].length + gap;
    }
    return starts;
}

} // namespace

QRectF boxAround(const QVector<ShapeUnit> &units)
{
    QRectF boxPx;
    for (const ShapeUnit &unit : units)
        boxPx |= unit.boxPx();
    return boxPx;
}

QVector<ItemMove> alignedMoves(const QVector<ShapeUnit> &units, Qt::Alignment alignment,
                               const QRectF &withinPx)
{
    QVector<ItemMove> moves;
    for (const ShapeUnit &unit : units)
        moveBy(unit, shiftInto(withinPx, unit.boxPx(), alignment), &moves);
    return moves;
}

QVector<ItemMove> spreadMoves(const QVector<ShapeUnit> &units, Qt::Orientation direction,
                              Spread spread)
{
    QVector<ItemMove> moves;
    if (units.size() < 3)
        return moves;
    const QVector<Span> spans = spansOf(units, direction, spread);
    const QVector<double> starts = spreadStarts(spans, spread);
    for (int i = 1; i + 1 < spans.size(); ++i) {
        const double shift = starts[i] - spans[i].from;
        moveBy(*spans[i].unit,
               direction == Qt::Horizontal ? QPointF(shift, 0.0) : QPointF(0.0, shift), &moves);
    }
    return moves;
}

QVector<ItemMove> centredMoves(const QVector<ShapeUnit> &units, const QPointF &placePx)
{
    QVector<ItemMove> moves;
    const QPointF shiftPx = placePx - boxAround(units).center();
    for (const ShapeUnit &unit : units)
        moveBy(unit, shiftPx, &moves);
    return moves;
}

} // namespace studio
