#include <vectorkit/edit/PainterPaths.h>

#include <algorithm>
#include <limits>

namespace vectorkit {

namespace {

void take(VectorPath *run, QVector<VectorPath> *paths)
{
    const bool hasInside = run->pieceCount() > 1 || !run->isPolyline();
    if (hasInside && run->start() == run->end())
        run->close();
    if (!run->isEmpty())
        paths->append(*run);
}

} // namespace

QVector<VectorPath> pathsOf(const QPainterPath &path)
{
    QVector<VectorPath> paths;
    VectorPath run;
    for (int at = 0; at < path.elementCount(); ++at) {
        const QPainterPath::Element element = path.elementAt(at);
        switch (element.type) {
        case QPainterPath::MoveToElement:
            take(&run, &paths);
            run = VectorPath(element);
            break;
        case QPainterPath::LineToElement:
            run.lineTo(element);
            break;
        default: // a curve: two control points and its end
            if (at + 2 < path.elementCount())
                run.cubicTo(element, path.elementAt(at + 1), path.elementAt(at + 2));
            at += 2;
            break;
        }
    }
    take(&run, &paths);
    return paths;
}

QPainterPath painterPathOf(const QVector<VectorPath> &paths)
{
    QPainterPath path;
    for (const VectorPath &one : paths)
        one.addTo(&path);
    return path;
}

QRectF boundsOf(const QVector<VectorPath> &paths)
{
    constexpr double kFar = std::numeric_limits<double>::max();
    QPointF least(kFar, kFar);
    QPointF most(-kFar, -kFar);
    for (const VectorPath &path : paths) {
        if (path.isEmpty())
            continue;
        // Not united(): it ignores boxes without a width or height.
        const QRectF box = path.boundsMm();
        least = QPointF(std::min(least.x(), box.left()), std::min(least.y(), box.top()));
        most = QPointF(std::max(most.x(), box.right()), std::max(most.y(), box.bottom()));
    }
    return least.x() <= most.x() ? QRectF(least, most) : QRectF();
}

} // namespace vectorkit
