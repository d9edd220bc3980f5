#include <studio/Alignment.h>

namespace studio {

namespace {

QPointF shiftInto(const QRectF &groupPx, const QRectF &boxPx, Qt::Alignment alignment)
{
    QPointF shiftPx;
    if (alignment.testFlag(Qt::AlignLeft))
        shiftPx.setX(groupPx.left() - boxPx.left());
    if (alignment.testFlag(Qt::AlignRight))
        shiftPx.setX(groupPx.right() - boxPx.right());
    if (alignment.testFlag(Qt::AlignHCenter))
        shiftPx.setX(groupPx.center().x() - boxPx.center().x());
    if (alignment.testFlag(Qt::AlignTop))
        shiftPx.setY(groupPx.top() - boxPx.top());
    if (alignment.testFlag(Qt::AlignBottom))
        shiftPx.setY(groupPx.bottom() - boxPx.bottom());
    if (alignment.testFlag(Qt::AlignVCenter))
        shiftPx.setY(groupPx.center().y() - boxPx.center().y());
    return shiftPx;
}

} // namespace

QVector<ItemMove> alignedMoves(const ShapeItems &items, Qt::Alignment alignment)
{
    const QRectF groupPx = sceneBox(items);
    QVector<ItemMove> moves;
    for (ShapeItem *item : items) {
        const QPointF toPx = item->pos() + shiftInto(groupPx, sceneBox(*item), alignment);
        if (toPx != item->pos())
            moves.append({item, toPx});
    }
    return moves;
}

} // namespace studio
