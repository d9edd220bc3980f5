#include <vectorkit/clean/PathFitting.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace vectorkit {

namespace {

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

double distanceToLine(const QPointF &point, const QPointF &a, const QPointF &b)
{
    const QPointF along = b - a;
    const double square = QPointF::dotProduct(along, along);
    const double t =
        square > 0.0 ? std::clamp(QPointF::dotProduct(point - a, along) / square, 0.0, 1.0) : 0.0;
    return distance(point, a + along * t);
}

/** Calls `line(points)` for each run of straight lines and `curve(piece)` for each other piece. */
template <class Line, class Curve>
void walkRuns(const VectorPath &path, Line line, Curve curve)
{
    QVector<QPointF> run{path.start()};
    const auto endRun = [&] {
        if (run.size() > 1)
            line(qAsConst(run));
    };
    path.forEach([&](const VectorPath::Piece &piece) {
        if (piece.kind == PieceKind::Line) {
            run.append(piece.to);
            return;
        }
        endRun();
        curve(piece);
        run = {piece.to};
    });
    endRun();
}

void append(VectorPath *path, const VectorPath::Piece &piece)
{
    if (piece.kind == PieceKind::Cubic)
        path->cubicTo(piece.control1, piece.control2, piece.to);
    else
        path->arcTo(piece.control1, piece.sweepDeg, piece.to);
}

/** Marks the points between two that must stay, the farthest first. */
void keepFarthest(const QVector<QPointF> &points, int from, int to, double toleranceMm,
                  std::vector<bool> *isKept)
{
    std::vector<std::pair<int, int>> open{{from, to}};
    while (!open.empty()) {
        const auto [low, high] = open.back();
        open.pop_back();
        int farthest = -1;
        double most = toleranceMm;
        for (int i = low + 1; i < high; ++i) {
            const double off = distanceToLine(points[i], points[low], points[high]);
            if (off > most) {
                most = off;
                farthest = i;
            }
        }
        if (farthest < 0)
            continue;
        (*isKept)[static_cast<std::size_t>(farthest)] = true;
        open.push_back({low, farthest});
        open.push_back({farthest, high});
    }
}

QVector<QPointF> simplified(const QVector<QPointF> &points, double toleranceMm)
{
    // Limit: so many points at a time, as the time for one lot may grow with its square.
    constexpr int kLot = 1024;
    std::vector<bool> isKept(static_cast<std::size_t>(points.size()), false);
    for (int from = 0; from < points.size() - 1; from += kLot) {
        const int to = std::min(from + kLot, points.size() - 1);
        isKept[static_cast<std::size_t>(from)] = true;
        isKept[static_cast<std::size_t>(to)] = true;
        keepFarthest(points, from, to, toleranceMm, &isKept);
    }
    QVector<QPointF> kept;
    for (int i = 0; i < points.size(); ++i) {
        if (isKept[static_cast<std::size_t>(i)])
            kept.append(points[i]);
    }
    return kept;
}

/** A circle, and how far round on it. */
struct Arc
{
    QPointF centre;
    double radius = 0.0;
    double sweepDeg = 0.0;
    bool isFound = false;
};

bool circleThrough(const QPointF &a, const QPointF &b, const QPointF &c, Arc *arc)
{
    const QPointF toB = b - a;
    const QPointF toC = c - a;
    const double cross = toB.x() * toC.y() - toB.y() * toC.x();
    const double size = std::hypot(toB.x(), toB.y()) * std::hypot(toC.x(), toC.y());
    if (std::abs(cross) <= 1e-6 * size)
        return false;
    const double squareB = QPointF::dotProduct(toB, toB);
    const double squareC = QPointF::dotProduct(toC, toC);
    arc->centre =
        a + QPointF(squareB * toC.y() - squareC * toB.y(), squareC * toB.x() - squareB * toC.x()) /
                (2.0 * cross);
    arc->radius = distance(arc->centre, a);
    return true;
}

/** The arc that these points and the lines between them follow, if there is one. */
Arc arcOver(const QVector<QPointF> &points, int from, int to, double toleranceMm)
{
    Arc arc;
    const bool isWhole = distance(points[from], points[to]) == 0.0;
    const int middle = isWhole ? from + (to - from) / 3 : from + (to - from) / 2;
    const int last = isWhole ? from + (to - from) * 2 / 3 : to;
    if (!circleThrough(points[from], points[middle], points[last], &arc))
        return arc;
    double sweep = 0.0;
    for (int i = from; i <= to; ++i) {
        if (std::abs(distance(arc.centre, points[i]) - arc.radius) > toleranceMm)
            return arc;
        if (i == from)
            continue;
        const QPointF before = points[i - 1] - arc.centre;
        const QPointF after = points[i] - arc.centre;
        const double step =
            std::atan2(before.y() * after.x() - before.x() * after.y(), // positive: to the left
                       QPointF::dotProduct(before, after));
        const bool turnsBack = i > from + 1 && (step > 0.0) != (sweep > 0.0);
        const double height = arc.radius * (1.0 - std::cos(step / 2.0));
        if (turnsBack || step == 0.0 || height > toleranceMm)
            return arc;
        sweep += step;
    }
    arc.sweepDeg = qRadiansToDegrees(sweep);
    arc.isFound =
        isWhole ? std::abs(std::abs(arc.sweepDeg) - 360.0) < 1e-6 : std::abs(arc.sweepDeg) < 359.0;
    return arc;
}

/** The last point up to which one arc goes from a point; that point when there is none. */
int lastOnArc(const QVector<QPointF> &points, int from, double toleranceMm, Arc *arc)
{
    constexpr int kLeastSteps = 4;
    int good = from;
    int step = kLeastSteps;
    // In growing strides while it holds, then in shrinking ones.
    while (from + step < points.size()) {
        const Arc next = arcOver(points, from, from + step, toleranceMm);
        if (!next.isFound)
            break;
        *arc = next;
        good = from + step;
        step *= 2;
    }
    if (good == from)
        return from;
    for (int stride = step / 2; stride > 0; stride /= 2) {
        if (good + stride >= points.size())
            continue;
        const Arc next = arcOver(points, from, good + stride, toleranceMm);
        if (next.isFound) {
            *arc = next;
            good += stride;
        }
    }
    return good;
}

void appendFitted(VectorPath *fitted, const QVector<QPointF> &points, double toleranceMm)
{
    const int last = points.size() - 1;
    if (last >= 6 && distance(points.first(), points.last()) == 0.0) {
        const Arc circle = arcOver(points, 0, last, toleranceMm);
        if (circle.isFound) {
            fitted->arcTo(circle.centre, std::copysign(360.0, circle.sweepDeg), points.last());
            return;
        }
    }
    for (int at = 0; at < last;) {
        Arc arc;
        const int end = lastOnArc(points, at, toleranceMm, &arc);
        if (end > at) {
            fitted->arcTo(arc.centre, arc.sweepDeg, points[end]);
            at = end;
        } else {
            fitted->lineTo(points[++at]);
        }
    }
}

} // namespace

VectorPath simplifiedPath(const VectorPath &path, double toleranceMm)
{
    VectorPath simpler(path.start());
    walkRuns(
        path,
        [&](const QVector<QPointF> &run) {
            const QVector<QPointF> kept = simplified(run, toleranceMm);
            for (int i = 1; i < kept.size(); ++i)
                simpler.lineTo(kept[i]);
        },
        [&](const VectorPath::Piece &curve) { append(&simpler, curve); });
    if (path.isClosed())
        simpler.close();
    return simpler;
}

VectorPath arcFittedPath(const VectorPath &path, double toleranceMm)
{
    VectorPath fitted(path.start());
    walkRuns(
        path, [&](const QVector<QPointF> &run) { appendFitted(&fitted, run, toleranceMm); },
        [&](const VectorPath::Piece &curve) { append(&fitted, curve); });
    if (path.isClosed())
        fitted.close();
    return fitted;
}

} // namespace vectorkit
