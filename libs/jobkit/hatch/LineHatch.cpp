#include <jobkit/hatch/AreaHatch.h>

#include <QtCore/QtMath>
#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>
#include <vector>

namespace jobkit {

namespace {

bool isInRange(const Area &area)
{
    for (const QPolygonF &outline : area) {
        for (const QPointF &point : outline) {
            if (!(std::abs(point.x()) <= kMostCoordinateMm &&
                  std::abs(point.y()) <= kMostCoordinateMm))
                return false;
        }
    }
    return true;
}

bool isInRange(const LineHatch &hatch)
{
    return hatch.spacingMm >= kLeastSpacingMm && hatch.spacingMm <= kMostSpacingMm &&
           hatch.insetMm >= 0.0 && std::isfinite(hatch.angleDeg) &&
           std::isfinite(hatch.turnEachPassDeg);
}

QRectF boundsOf(const Area &area)
{
    QRectF bounds;
    for (const QPolygonF &outline : area)
        bounds |= outline.boundingRect();
    return bounds;
}

struct Rows
{
    double firstY = 0.0;
    double spacing = 1.0;
    std::vector<std::vector<double>> crossings; ///< x of each row's crossings
    qint64 count = 0;

    double y(int row) const { return firstY + spacing * row; }
};

/** Rows in the middle of the height and whole spacings from there. */
Rows rowsOver(const QRectF &bounds, double spacing)
{
    Rows rows;
    const double middle = bounds.center().y();
    const double below = std::floor((middle - bounds.top()) / spacing);
    rows.firstY = middle - below * spacing;
    rows.spacing = spacing;
    const double count = 2.0 * below + 1.0;
    if (count <= kMostHatchLines)
        rows.crossings.resize(static_cast<size_t>(count));
    return rows;
}

/** Of an edge the lower end counts and the upper does not, so that a corner counts once. */
void cross(const QPointF &a, const QPointF &b, Rows *rows)
{
    const QPointF &low = a.y() < b.y() ? a : b;
    const QPointF &high = a.y() < b.y() ? b : a;
    const int last = static_cast<int>(rows->crossings.size()) - 1;
    const double before = (low.y() - rows->firstY) / rows->spacing;
    for (int row = std::max(0, static_cast<int>(std::floor(before))); row <= last; ++row) {
        const double y = rows->y(row);
        if (y >= high.y() || rows->count > 2 * qint64(kMostHatchLines))
            return;
        if (y < low.y())
            continue;
        const double share = (y - low.y()) / (high.y() - low.y());
        rows->crossings[static_cast<size_t>(row)].push_back(low.x() + share * (high.x() - low.x()));
        ++rows->count;
    }
}

void crossAll(const Area &area, Rows *rows)
{
    for (const QPolygonF &outline : area) {
        for (int i = 0; i < outline.size(); ++i) {
            const QPointF &next = outline[i + 1 < outline.size() ? i + 1 : 0];
            if (outline[i].y() != next.y())
                cross(outline[i], next, rows);
        }
    }
}

QVector<QPolygonF> linesOf(Rows *rows, bool isOneWay, const QTransform &back)
{
    QVector<QPolygonF> lines;
    bool isForward = true;
    for (size_t row = 0; row < rows->crossings.size(); ++row) {
        std::vector<double> &crossings = rows->crossings[row];
        if (crossings.size() < 2)
            continue;
        std::sort(crossings.begin(), crossings.end());
        if (!isForward)
            std::reverse(crossings.begin(), crossings.end());
        const double y = rows->y(static_cast<int>(row));
        for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
            if (crossings[i] == crossings[i + 1])
                continue;
            const QVector<QPointF> line{back.map(QPointF(crossings[i], y)),
                                        back.map(QPointF(crossings[i + 1], y))};
            lines.append(QPolygonF(line));
        }
        isForward = isOneWay || !isForward;
    }
    return lines;
}

QVector<QPolygonF> linesAt(const Area &area, double angleDeg, const LineHatch &hatch)
{
    const QPointF centre = boundsOf(area).center();
    QTransform level;
    level.rotate(-angleDeg);
    level.translate(-centre.x(), -centre.y());
    Area turned;
    for (const QPolygonF &outline : area)
        turned.append(level.map(outline));
    Rows rows = rowsOver(boundsOf(turned), hatch.spacingMm);
    crossAll(turned, &rows);
    if (rows.count > 2 * qint64(kMostHatchLines))
        return {};
    return linesOf(&rows, hatch.isOneWay, level.inverted());
}

/** The area that is hatched; empty where something is out of range. */
Area hatchedArea(const Area &area, const LineHatch &hatch)
{
    if (!isInRange(hatch) || !isInRange(area))
        return {};
    return hatch.insetMm > 0.0 ? insetArea(area, hatch.insetMm) : area;
}

} // namespace

QVector<QPolygonF> lineHatch(const Area &area, const LineHatch &hatch, int pass)
{
    const Area hatched = hatchedArea(area, hatch);
    return linesAt(hatched, hatch.angleDeg + pass * hatch.turnEachPassDeg, hatch);
}

QVector<QPolygonF> crossHatch(const Area &area, const LineHatch &hatch, int pass)
{
    const Area hatched = hatchedArea(area, hatch);
    const double angleDeg = hatch.angleDeg + pass * hatch.turnEachPassDeg;
    return linesAt(hatched, angleDeg, hatch) + linesAt(hatched, angleDeg + 90.0, hatch);
}

} // namespace jobkit
