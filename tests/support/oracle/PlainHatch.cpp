#include <support/oracle/PlainHatch.h>

#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

struct HatchHit
{
    QPointF point;
    int edgeIndex = 0;
    int polygonIndex = 0;
    int sequence = 0;
    bool used = false;
};

struct HatchEdge
{
    QLineF line;
    QVector<HatchHit> hits;
    int polygonIndex = 0;
};

struct HatchRow
{
    QLineF line;
    HatchHit first;
    HatchHit second;
    bool used = false;
};

bool samePoint(const QPointF &a, const QPointF &b)
{
    return std::fabs(a.x() - b.x()) <= 1e-12 && std::fabs(a.y() - b.y()) <= 1e-12;
}

int side(const QPointF &p, const QPointF &q, const QPointF &r)
{
    const double c = (q.x() - p.x()) * (r.y() - q.y()) - (q.y() - p.y()) * (r.x() - q.x());
    return c > 0 ? 1 : c < 0 ? 0 : 2;
}

double normalised(double angle)
{
    if (angle < -90)
        angle += 180;
    else if (angle > 90)
        angle -= 180;
    return angle == 180.0 ? 0.0 : angle;
}

QPointF rotated(const QPointF &p, const QPointF &c, double a)
{
    if (a == 0.0 || a == 360.0)
        return p;
    const double r = a * 3.1415926535 / 180.0;
    return {(p.x() - c.x()) * std::cos(r) - (p.y() - c.y()) * std::sin(r) + c.x(),
            (p.x() - c.x()) * std::sin(r) + (p.y() - c.y()) * std::cos(r) + c.y()};
}

QVector<HatchEdge> edgesOf(const QList<QPolygonF> &polygons)
{
    QVector<HatchEdge> edges;
    for (int p = 0; p < polygons.size(); ++p) {
        const QPolygonF &polygon = polygons[p];
        const int n = polygon.size();
        for (int i = 0; i <= n - 2; ++i) {
            HatchEdge edge;
            edge.line = QLineF(polygon[i], i == n - 2 ? polygon[0] : polygon[i + 1]);
            edge.polygonIndex = p;
            edges.append(edge);
        }
    }
    return edges;
}

QVector<QLineF> scanLinesOf(const QRectF &r, double spac, double angle)
{
    constexpr int kMostScanLines = 10000000;
    QVector<QLineF> scans;
    if (!(spac > 0.0) || !std::isfinite(spac))
        return scans;
    const double m = std::max(r.height(), r.width());
    const double d = std::sqrt(m * m + m * m);
    const QPointF c(r.x() + r.width() / 2, r.y() + r.height() / 2);
    const double x0 = r.x() + r.width() / 2 - d / 2;
    const double y0 = r.y() + r.height() / 2 - d / 2;
    const double left = x0 - 10.0;
    const double right = x0 + d + 10.0;
    for (double y = y0 - 10.0; y < y0 + d + 10.0; y += spac) {
        if (y + spac == y || scans.size() == kMostScanLines)
            return {};
        scans.append(QLineF(rotated({left, y}, c, angle), rotated({right, y}, c, angle)));
    }
    return scans;
}

/** Pairs the hits of one scan line; which style the pairs go to is the caller's. */
template <typename Emit>
void pairHits(QVector<HatchHit> &hits, const Emit &emitPair)
{
    const auto give = [&](int a, int b) {
        emitPair(hits[a], hits[b]);
        hits[a].used = true;
        hits[b].used = true;
    };
    const int count = hits.size();
    for (int i = 0; i < count - 1; i += 2) {
        const int k = hits[i].used ? i - 1 : i;
        const bool doubtful = (i + 2 < count && samePoint(hits[i + 1].point, hits[i + 2].point)) ||
                              (i > 0 && samePoint(hits[i].point, hits[i - 1].point));
        if (!doubtful) {
            give(k, i + 1);
            continue;
        }
        for (int j = 0; j < count; ++j) {
            if (hits[j].used)
                continue;
            const int g = std::abs(hits[k].sequence - hits[j].sequence);
            if (g == 1 && hits[k].sequence % 2 == 1 && hits[k].sequence < hits[j].sequence)
                continue;
            if (g == 1) {
                give(k, j);
                break;
            }
        }
    }
}

/** Numbers before what is not a number; otherwise by x alone. */
bool isLeft(double a, double b) { return a < b || (std::isnan(b) && !std::isnan(a)); }

void sortHits(QVector<HatchHit> &hits, bool ascending)
{
    std::stable_sort(hits.begin(), hits.end(), [&](const HatchHit &a, const HatchHit &b) {
        const double xa = a.point.x();
        const double xb = b.point.x();
        return ascending ? isLeft(xa, xb) : isLeft(-xa, -xb);
    });
}

/** The plain link loop over rows. */
class PlainLinker
{
public:
    PlainLinker(const QList<QPolygonF> &polygons_, const QVector<HatchEdge> &edges_,
                std::vector<HatchRow> &rows_)
        : polygons(polygons_), edges(edges_), rows(rows_)
    {
    }

    QVector<QLineF> run()
    {
        QVector<QLineF> out;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].used)
                continue;
            reverse = false;
            std::size_t k = i;
            group = {rows[k].line};
            for (std::size_t t = k + 1; t < rows.size(); ++t) {
                const int outcome = link(rows[k], rows[t]);
                if (outcome == 2)
                    break;
                if (outcome == 3) {
                    rows[t].used = true;
                    reverse = !reverse;
                    k = t;
                }
            }
            out += group;
        }
        return out;
    }

private:
    void appendRow(const HatchRow &row)
    {
        group.append(reverse ? row.line : QLineF(row.line.p2(), row.line.p1()));
    }

    int link(const HatchRow &rowA, const HatchRow &rowB)
    {
        if (samePoint(rowA.second.point, rowB.first.point) ||
            samePoint(rowA.first.point, rowB.second.point))
            return 0;
        const HatchHit &a = reverse ? rowA.first : rowA.second;
        const HatchHit &b = reverse ? rowB.first : rowB.second;
        if (a.polygonIndex != b.polygonIndex || rowB.used)
            return 0;
        if (a.edgeIndex == b.edgeIndex) {
            group.append(QLineF(a.point, b.point));
            appendRow(rowB);
            return 3;
        }
        const int s = side(rowA.first.point, rowA.second.point, rowB.second.point);
        QPointF q;
        const auto meeting = edges[a.edgeIndex].line.intersects(edges[b.edgeIndex].line, &q);
        if (s == 2)
            return 0;
        if (meeting == QLineF::BoundedIntersection) {
            group.append(QLineF(a.point, q));
            group.append(QLineF(q, b.point));
            appendRow(rowB);
            return 3;
        }
        return walk(rowA, rowB, a, b);
    }

    int walk(const HatchRow &rowA, const HatchRow &rowB, const HatchHit &a, const HatchHit &b)
    {
        const int u =
            side(rowA.first.point, rowA.second.point, edges[rowA.second.edgeIndex].line.p1());
        if (u == 2)
            return 2;
        const int w = u + (reverse ? 1 : 0);
        const bool against = w == 1;
        const QLineF &from = edges[a.edgeIndex].line;
        QPointF v = against ? from.p1() : from.p2();
        QVector<QLineF> sideList{QLineF(a.point, v)};
        int base = 0;
        for (int p = 0; p < b.polygonIndex; ++p)
            base += polygons[p].size() - 1;
        const int last = base + polygons[b.polygonIndex].size() - 1;
        QVector<QPointF> runStarts;
        for (;;) {
            // Exactly the same point: only then does the walk repeat itself for ever.
            for (const QPointF &start : qAsConst(runStarts)) {
                if (start.x() == v.x() && start.y() == v.y())
                    return 1;
            }
            runStarts.append(v);
            bool stepped = false;
            for (int k = base; k < last; ++k) {
                const HatchEdge &e = edges[k];
                if (!samePoint(against ? e.line.p2() : e.line.p1(), v))
                    continue;
                if (k == b.edgeIndex) {
                    group += sideList;
                    group.append(QLineF(v, b.point));
                    appendRow(rowB);
                    return 3;
                }
                if (!e.hits.isEmpty())
                    return 1;
                sideList.append(e.line);
                v = against ? e.line.p1() : e.line.p2();
                stepped = true;
            }
            if (!stepped)
                return 1;
        }
    }

    const QList<QPolygonF> &polygons;
    const QVector<HatchEdge> &edges;
    std::vector<HatchRow> &rows;
    QVector<QLineF> group;
    bool reverse = false;
};

} // namespace

QVector<QLineF> testsupport::plainHatch(const QPainterPath &linesPx, FillType type, double spac,
                                        double angle)
{
    angle = normalised(angle);
    const QList<QPolygonF> polygons = linesPx.toSubpathPolygons(QTransform());
    QVector<HatchEdge> edges = edgesOf(polygons);
    QRectF bounds;
    for (const QPolygonF &polygon : polygons)
        bounds = bounds.united(polygon.boundingRect());

    bool ascending = true;
    std::vector<HatchRow> rows;
    QVector<QLineF> out;
    for (const QLineF &scan : scanLinesOf(bounds, spac, angle)) {
        QVector<HatchHit> hits;
        for (int e = 0; e < edges.size(); ++e) {
            HatchHit hit;
            if (scan.intersects(edges[e].line, &hit.point) != QLineF::BoundedIntersection)
                continue;
            hit.edgeIndex = e;
            hit.polygonIndex = edges[e].polygonIndex;
            hit.sequence = hits.size();
            edges[e].hits.append(hit);
            hits.append(hit);
        }
        if (edges.isEmpty())
            continue;
        sortHits(hits, ascending);
        if (type == FillType::Line)
            ascending = !ascending;
        pairHits(hits, [&](const HatchHit &a, const HatchHit &b) {
            const QLineF line(a.point, b.point);
            if (type == FillType::Line)
                out.append(line);
            else if (type == FillType::ULine)
                rows.push_back({line, a, b, false});
        });
    }
    if (type == FillType::ULine)
        out = PlainLinker(polygons, edges, rows).run();
    return out;
}
