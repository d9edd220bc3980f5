#include <jobkit/plan/JobFrame.h>

#include <algorithm>
#include <vector>

namespace jobkit {

namespace {

constexpr int kFramePen = 9999;

double turn(const QPointF &a, const QPointF &b, const QPointF &c)
{
    return (b.x() - a.x()) * (c.y() - a.y()) - (b.y() - a.y()) * (c.x() - a.x());
}

/** Adds a point to one half of a hull, from which it drops what lies inside by now. */
void addToHalf(const QPointF &point, int first, QPolygonF *hull)
{
    while (hull->size() >= first + 2 && turn((*hull)[hull->size() - 2], hull->last(), point) <= 0.0)
        hull->removeLast();
    hull->append(point);
}

QPolygonF hullOf(const JobPlan &plan)
{
    std::vector<QPointF> points;
    for (const PlanPiece &piece : plan.pieces)
        points.insert(points.end(), piece.pointsMm.begin(), piece.pointsMm.end());
    const auto isBefore = [](const QPointF &a, const QPointF &b) {
        return a.x() < b.x() || (a.x() == b.x() && a.y() < b.y());
    };
    const auto isSame = [](const QPointF &a, const QPointF &b) {
        return a.x() == b.x() && a.y() == b.y();
    };
    std::sort(points.begin(), points.end(), isBefore);
    points.erase(std::unique(points.begin(), points.end(), isSame), points.end());
    QPolygonF hull;
    for (const QPointF &point : points)
        addToHalf(point, 0, &hull);
    const int half = hull.size() - 1;
    for (size_t i = points.size() - 1; i-- > 0;)
        addToHalf(points[i], half, &hull);
    return hull;
}

} // namespace

QPolygonF frameOf(const JobPlan &plan, FrameKind kind)
{
    if (plan.pieces.isEmpty())
        return {};
    if (kind == FrameKind::Hull)
        return hullOf(plan);
    const QRectF box = plan.boundsMm();
    if (box.width() == 0.0 || box.height() == 0.0)
        return hullOf(plan);
    return QPolygonF(QVector<QPointF>{box.topLeft(), box.topRight(), box.bottomRight(),
                                      box.bottomLeft(), box.topLeft()});
}

JobPlan framePlan(const JobPlan &plan, FrameKind kind)
{
    JobPlan frame;
    PlanPiece piece;
    piece.pointsMm = frameOf(plan, kind);
    piece.pen = kFramePen;
    piece.object = -1;
    if (!piece.pointsMm.isEmpty())
        frame.pieces.append(piece);
    return frame;
}

Pen framePen()
{
    Pen pen = defaultPen(kFramePen);
    pen.name = QStringLiteral("frame");
    pen.powerPercent = 0.0;
    pen.speedMmPerS = 100.0;
    return pen;
}

} // namespace jobkit
