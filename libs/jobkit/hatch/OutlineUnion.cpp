#include <jobkit/hatch/OutlineUnion.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <vector>

namespace jobkit {

namespace {

struct Edge
{
    QPointF a;
    QPointF b;
    int outline = 0;

    double left() const { return std::min(a.x(), b.x()); }
    double right() const { return std::max(a.x(), b.x()); }
};

/** On which side of a straight line a point lies, by sign. */
double side(const QPointF &a, const QPointF &b, const QPointF &point)
{
    return (b.x() - a.x()) * (point.y() - a.y()) - (b.y() - a.y()) * (point.x() - a.x());
}

bool isSame(const QPointF &a, const QPointF &b) { return a.x() == b.x() && a.y() == b.y(); }

bool cross(const Edge &e, const Edge &f)
{
    if (std::max(e.a.y(), e.b.y()) < std::min(f.a.y(), f.b.y()) ||
        std::max(f.a.y(), f.b.y()) < std::min(e.a.y(), e.b.y()))
        return false;
    // Neighbours of one outline meet in a corner and do not cross.
    if (isSame(e.a, f.a) || isSame(e.a, f.b) || isSame(e.b, f.a) || isSame(e.b, f.b))
        return false;
    const double c = side(e.a, e.b, f.a);
    const double d = side(e.a, e.b, f.b);
    if ((c > 0.0 && d > 0.0) || (c < 0.0 && d < 0.0) || (c == 0.0 && d == 0.0))
        return false;
    const double g = side(f.a, f.b, e.a);
    const double h = side(f.a, f.b, e.b);
    return !((g > 0.0 && h > 0.0) || (g < 0.0 && h < 0.0));
}

bool isClosed(const QPolygonF &outline)
{
    return outline.size() > 3 && isSame(outline.first(), outline.last()) &&
           std::all_of(outline.begin(), outline.end(), [](const QPointF &point) {
               return std::isfinite(point.x()) && std::isfinite(point.y());
           });
}

double twiceArea(const QPolygonF &outline)
{
    double sum = 0.0;
    for (int i = 0; i + 1 < outline.size(); ++i)
        sum += outline[i].x() * outline[i + 1].y() - outline[i + 1].x() * outline[i].y();
    return sum;
}

/** Sets of outlines that are to be united. */
class Groups
{
public:
    explicit Groups(const Area &outlines)
        : m_outlines(outlines), m_parents(static_cast<size_t>(outlines.size())),
          m_isUnited(static_cast<size_t>(outlines.size()), false)
    {
        std::iota(m_parents.begin(), m_parents.end(), 0);
        for (const QPolygonF &outline : outlines) {
            m_isArea.push_back(isClosed(outline));
            m_boxes.push_back(outline.boundingRect());
        }
        for (int i = 0; i < outlines.size(); ++i) {
            if (m_isArea[size_t(i)])
                m_byLeft.push_back(i);
        }
        std::sort(m_byLeft.begin(), m_byLeft.end(), [this](int a, int b) {
            return m_boxes[size_t(a)].left() < m_boxes[size_t(b)].left();
        });
    }

    QVector<QVector<int>> find()
    {
        joinCrossing();
        joinCovered();
        while (joinEnclosed()) {
        }
        return result();
    }

private:
    int rootOf(int i)
    {
        while (m_parents[size_t(i)] != i)
            i = m_parents[size_t(i)] = m_parents[size_t(m_parents[size_t(i)])];
        return i;
    }

    void join(int a, int b)
    {
        m_isUnited[size_t(a)] = m_isUnited[size_t(b)] = true;
        m_parents[size_t(std::max(rootOf(a), rootOf(b)))] = std::min(rootOf(a), rootOf(b));
    }

    std::vector<Edge> edgesByLeft() const
    {
        std::vector<Edge> edges;
        for (int i = 0; i < m_outlines.size(); ++i) {
            const QPolygonF &outline = m_outlines[i];
            for (int k = 0; m_isArea[size_t(i)] && k + 1 < outline.size(); ++k) {
                if (!isSame(outline[k], outline[k + 1]))
                    edges.push_back({outline[k], outline[k + 1], i});
            }
        }
        std::sort(edges.begin(), edges.end(),
                  [](const Edge &a, const Edge &b) { return a.left() < b.left(); });
        return edges;
    }

    void joinCrossing()
    {
        std::vector<Edge> open;
        for (const Edge &edge : edgesByLeft()) {
            const double left = edge.left();
            const auto isPast = [left](const Edge &other) { return other.right() < left; };
            open.erase(std::remove_if(open.begin(), open.end(), isPast), open.end());
            for (const Edge &other : open) {
                const bool isKnown = m_isUnited[size_t(edge.outline)] &&
                                     m_isUnited[size_t(other.outline)] &&
                                     rootOf(edge.outline) == rootOf(other.outline);
                if (!isKnown && cross(edge, other))
                    join(edge.outline, other.outline);
            }
            open.push_back(edge);
        }
    }

    /** Areas whose box lies in that of `outer`: among those that begin where it stands. */
    template <class Visit>
    void forEachWithin(int outer, const Visit &visit)
    {
        if (!m_isArea[size_t(outer)])
            return;
        const QRectF &box = m_boxes[size_t(outer)];
        const auto begins = [this](int outline, double x) {
            return m_boxes[size_t(outline)].left() < x;
        };
        for (auto at = std::lower_bound(m_byLeft.begin(), m_byLeft.end(), box.left(), begins);
             at != m_byLeft.end() && m_boxes[size_t(*at)].left() <= box.right(); ++at) {
            if (*at != outer && box.contains(m_boxes[size_t(*at)]))
                visit(*at);
        }
    }

    /** What lies in an outline that turns the same way is covered by it. */
    void joinCovered()
    {
        std::vector<bool> isLeft;
        for (const QPolygonF &outline : m_outlines)
            isLeft.push_back(twiceArea(outline) > 0.0);
        for (int outer = 0; outer < m_outlines.size(); ++outer) {
            forEachWithin(outer, [&](int inner) {
                if (isLeft[size_t(outer)] == isLeft[size_t(inner)] &&
                    m_outlines[outer].containsPoint(m_outlines[inner].first(), Qt::WindingFill))
                    join(outer, inner);
            });
        }
    }

    /** Holes of what is united belong to it. */
    bool joinEnclosed()
    {
        bool isMore = false;
        for (int outer = 0; outer < m_outlines.size(); ++outer) {
            if (!m_isUnited[size_t(outer)])
                continue;
            forEachWithin(outer, [&](int inner) {
                if (!m_isUnited[size_t(inner)]) {
                    join(outer, inner);
                    isMore = true;
                }
            });
        }
        return isMore;
    }

    QVector<QVector<int>> result()
    {
        std::vector<int> places(static_cast<size_t>(m_outlines.size()), -1);
        QVector<QVector<int>> groups;
        for (int i = 0; i < m_outlines.size(); ++i) {
            if (!m_isUnited[size_t(i)])
                continue;
            int &place = places[size_t(rootOf(i))];
            if (place < 0) {
                place = groups.size();
                groups.append(QVector<int>());
            }
            groups[place].append(i);
        }
        return groups;
    }

    const Area &m_outlines;
    std::vector<int> m_parents;
    std::vector<bool> m_isUnited;
    std::vector<bool> m_isArea;
    std::vector<QRectF> m_boxes;
    std::vector<int> m_byLeft; ///< the areas, in the order of the left sides of their boxes
};

} // namespace

QVector<QVector<int>> overlappingOutlines(const Area &outlines) { return Groups(outlines).find(); }

} // namespace jobkit
