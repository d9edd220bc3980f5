#include <vectorkit/hpgl/HpglWindow_p.h>

#include <vectorkit/clean/OutlineOps.h>

#include <QtCore/QtMath>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>
#include <vector>

namespace vectorkit {

namespace {

/** Curves that leave the window are cut as polylines this near to them. */
constexpr double kToleranceMm = 0.001;

bool isInside(const QRectF &window, const QRectF &box)
{
    return box.left() >= window.left() && box.right() <= window.right() &&
           box.top() >= window.top() && box.bottom() <= window.bottom();
}

bool isInside(const QRectF &window, const QPointF &point)
{
    return isInside(window, QRectF(point, point));
}

/** Where a line crosses the edges of a window, as parts of its length. */
void crossingsOfLine(const VectorPath::Piece &line, const QRectF &window, std::vector<double> *at)
{
    const QPointF along = line.to - line.from;
    const auto cross = [&](double step, double way) {
        if (step != 0.0)
            at->push_back(way / step);
    };
    cross(along.x(), window.left() - line.from.x());
    cross(along.x(), window.right() - line.from.x());
    cross(along.y(), window.top() - line.from.y());
    cross(along.y(), window.bottom() - line.from.y());
}

/** The angle of a point about an arc's centre, counter-clockwise on the screen. */
double angleDeg(const QPointF &ray) { return qRadiansToDegrees(std::atan2(-ray.y(), ray.x())); }

void crossingsOfArc(const VectorPath::Piece &arc, const QRectF &window, std::vector<double> *at)
{
    const QPointF ray = arc.from - arc.control1;
    const double radius = std::hypot(ray.x(), ray.y());
    const double startDeg = angleDeg(ray);
    const auto cross = [&](double x, double y) {
        double turn = std::remainder(angleDeg(QPointF(x, y)) - startDeg, 360.0);
        if (arc.sweepDeg > 0.0 && turn < 0.0)
            turn += 360.0;
        if (arc.sweepDeg < 0.0 && turn > 0.0)
            turn -= 360.0;
        at->push_back(turn / arc.sweepDeg);
    };
    for (const double edge : {window.left(), window.right()}) {
        const double x = edge - arc.control1.x();
        if (std::abs(x) < radius) {
            cross(x, std::sqrt(radius * radius - x * x));
            cross(x, -std::sqrt(radius * radius - x * x));
        }
    }
    for (const double edge : {window.top(), window.bottom()}) {
        const double y = edge - arc.control1.y();
        if (std::abs(y) < radius) {
            cross(std::sqrt(radius * radius - y * y), y);
            cross(-std::sqrt(radius * radius - y * y), y);
        }
    }
}

QPointF pointOn(const VectorPath::Piece &piece, double t)
{
    if (piece.kind == PieceKind::Line)
        return piece.from + (piece.to - piece.from) * t;
    VectorPath arc(piece.from);
    arc.arcAbout(piece.control1, t == 0.0 ? 1e-300 : piece.sweepDeg * t);
    return arc.end();
}

/** Collects what lies inside as runs without a jump. */
class Cutter
{
public:
    explicit Cutter(const QRectF &windowMm) : m_window(windowMm) {}

    void add(const VectorPath::Piece &piece)
    {
        std::vector<double> at{0.0, 1.0};
        if (piece.kind == PieceKind::Line)
            crossingsOfLine(piece, m_window, &at);
        else
            crossingsOfArc(piece, m_window, &at);
        at.erase(std::remove_if(at.begin(), at.end(), [](double t) { return !(t >= 0 && t <= 1); }),
                 at.end());
        std::sort(at.begin(), at.end());
        for (std::size_t i = 1; i < at.size(); ++i) {
            if (at[i] > at[i - 1])
                addPart(piece, at[i - 1], at[i]);
        }
    }

    QVector<VectorPath> takeRuns()
    {
        endRun();
        return m_runs;
    }

private:
    void addPart(const VectorPath::Piece &piece, double from, double to)
    {
        if (!isInside(m_window, pointOn(piece, (from + to) / 2.0))) {
            endRun();
            return;
        }
        if (!m_isRunning)
            m_run = VectorPath(from == 0.0 ? piece.from : pointOn(piece, from));
        m_isRunning = true;
        if (piece.kind == PieceKind::Line)
            m_run.lineTo(to == 1.0 ? piece.to : pointOn(piece, to));
        else
            addArc(piece, from, to);
    }

    void addArc(const VectorPath::Piece &piece, double from, double to)
    {
        if (to == 1.0)
            m_run.arcTo(piece.control1, piece.sweepDeg * (to - from), piece.to);
        else
            m_run.arcAbout(piece.control1, piece.sweepDeg * (to - from));
    }

    void endRun()
    {
        if (m_isRunning && !m_run.isEmpty())
            m_runs.append(m_run);
        m_isRunning = false;
    }

    QRectF m_window;
    QVector<VectorPath> m_runs;
    VectorPath m_run;
    bool m_isRunning = false;
};

} // namespace

QVector<VectorPath> clippedPath(const VectorPath &path, const QRectF &windowMm)
{
    const QRectF box = path.boundsMm();
    if (isInside(windowMm, box))
        return {path};
    if (box.left() > windowMm.right() || box.right() < windowMm.left() ||
        box.top() > windowMm.bottom() || box.bottom() < windowMm.top())
        return {};
    Cutter cutter(windowMm);
    path.forEach([&](const VectorPath::Piece &piece) {
        if (piece.kind != PieceKind::Cubic) {
            cutter.add(piece);
            return;
        }
        VectorPath curve(piece.from);
        curve.cubicTo(piece.control1, piece.control2, piece.to);
        const QPolygonF polygon = curve.flattened(kToleranceMm);
        for (int i = 1; i < polygon.size(); ++i) {
            VectorPath::Piece line;
            line.from = polygon[i - 1];
            line.to = polygon[i];
            cutter.add(line);
        }
    });
    QVector<VectorPath> runs = cutter.takeRuns();
    const auto isStart = [&](const QPointF &point) {
        return point.x() == path.start().x() && point.y() == path.start().y();
    };
    if (path.isClosed() && runs.size() > 1 && isStart(runs.first().start()) &&
        isStart(runs.last().end())) { // the outline's start is no end of a run
        runs.last().append(runs.first());
        runs.first() = runs.takeLast();
    }
    return runs;
}

QVector<VectorPath> clippedArea(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                const QRectF &windowMm)
{
    const bool isWhole =
        std::all_of(outlines.begin(), outlines.end(), [&](const VectorPath &outline) {
            return isInside(windowMm, outline.boundsMm());
        });
    if (isWhole)
        return outlines;
    const VectorPath frame = VectorPath::polyline(
        {windowMm.topLeft(), windowMm.bottomLeft(), windowMm.bottomRight(), windowMm.topRight()},
        true);
    return combinedOutlines(OutlineOp::Intersection, outlines, {frame}, rule, kToleranceMm);
}

} // namespace vectorkit
