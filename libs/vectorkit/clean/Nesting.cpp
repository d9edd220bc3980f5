#include <vectorkit/clean/Nesting.h>

#include <vectorkit/clean/PointGrid_p.h>

#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>
#include <memory>

namespace vectorkit {

namespace {

/** An outline's edges by level strips, so that a point meets few of them. */
class Outline
{
public:
    explicit Outline(const VectorPath &path)
        : m_polygon(path.flattened(0.01)), m_box(m_polygon.boundingRect())
    {
        const int edges = m_polygon.size() - 1;
        m_strips.resize(static_cast<std::size_t>(std::clamp(edges / 4, 1, 65536)));
        for (int i = 0; i < edges; ++i) {
            const double a = m_polygon[i].y();
            const double b = m_polygon[i + 1].y();
            for (int strip = stripOf(std::min(a, b)); strip <= stripOf(std::max(a, b)); ++strip)
                m_strips[static_cast<std::size_t>(strip)].push_back(i);
        }
    }

    bool contains(const QPointF &point) const
    {
        bool isInside = false;
        for (const int i : m_strips[static_cast<std::size_t>(stripOf(point.y()))]) {
            const QPointF &a = m_polygon[i];
            const QPointF &b = m_polygon[i + 1];
            if ((a.y() > point.y()) == (b.y() > point.y()))
                continue;
            const double x = a.x() + (point.y() - a.y()) / (b.y() - a.y()) * (b.x() - a.x());
            if (x > point.x())
                isInside = !isInside;
        }
        return isInside;
    }

private:
    int stripOf(double y) const
    {
        const double part = m_box.height() > 0.0 ? (y - m_box.top()) / m_box.height() : 0.0;
        const double last = double(m_strips.size()) - 1.0;
        return static_cast<int>(std::clamp(part * double(m_strips.size()), 0.0, last));
    }

    QPolygonF m_polygon;
    QRectF m_box;
    std::vector<std::vector<int>> m_strips;
};

bool holds(const QRectF &outer, const QRectF &inner)
{
    return outer.left() <= inner.left() && outer.right() >= inner.right() &&
           outer.top() <= inner.top() && outer.bottom() >= inner.bottom();
}

/** Boxes by grids of growing cells, each box in the one where it lies in at most four. */
class BoxLevels
{
public:
    explicit BoxLevels(std::size_t count) : m_table(count * 4, 1.0) {}

    void insert(const QRectF &box, int index)
    {
        const int level = levelOf(box);
        m_isUsed[level + kOffset] = true;
        const GridCell low = cellOf(box.topLeft(), level);
        const GridCell high = cellOf(box.bottomRight(), level);
        for (qint64 column = low.column; column <= high.column; ++column) {
            for (qint64 row = low.row; row <= high.row; ++row)
                m_table.insert(keyed({column, row}, level), index);
        }
    }

    template <class Visit>
    void forPoint(const QPointF &point, Visit visit) const
    {
        for (int level = -kOffset; level < kOffset; ++level) {
            if (m_isUsed[level + kOffset])
                m_table.forCell(keyed(cellOf(point, level), level), visit);
        }
    }

private:
    static constexpr int kOffset = 64;

    static int levelOf(const QRectF &box)
    {
        const double side = std::max({box.width(), box.height(), 1e-3});
        return std::clamp(static_cast<int>(std::ceil(std::log2(side))), -kOffset, kOffset - 1);
    }

    static GridCell cellOf(const QPointF &point, int level)
    {
        const double side = std::ldexp(1.0, level);
        return {static_cast<qint64>(std::floor(point.x() / side)),
                static_cast<qint64>(std::floor(point.y() / side))};
    }

    static GridCell keyed(const GridCell &cell, int level)
    {
        return {cell.column * 128 + level + kOffset, cell.row};
    }

    CellTable m_table;
    bool m_isUsed[2 * kOffset] = {};
};

} // namespace

std::vector<int> holdersOf(const QVector<VectorPath> &paths,
                           const std::function<bool(double)> &progress)
{
    constexpr std::size_t kEvery = 1024;
    const auto count = static_cast<std::size_t>(paths.size());
    std::vector<QRectF> boxes(count);
    BoxLevels levels(count);
    for (std::size_t i = 0; i < count; ++i) {
        const VectorPath &path = paths[static_cast<int>(i)];
        boxes[i] = path.boundsMm();
        if (path.isClosed())
            levels.insert(boxes[i], static_cast<int>(i));
    }
    const auto area = [&](std::size_t i) { return boxes[i].width() * boxes[i].height(); };
    std::vector<std::unique_ptr<Outline>> outlines(count);
    std::vector<int> holders(count, -1);
    for (std::size_t i = 0; i < count; ++i) {
        if (i % kEvery == 0 && progress && !progress(double(i) / double(count)))
            return {};
        const QPointF start = paths[static_cast<int>(i)].start();
        levels.forPoint(start, [&](int found) {
            const auto other = static_cast<std::size_t>(found);
            const int best = holders[i];
            // A larger box, so that no two hold each other.
            if (other == i || !(area(other) > area(i)) || !holds(boxes[other], boxes[i]) ||
                (best >= 0 && area(static_cast<std::size_t>(best)) <= area(other)))
                return;
            if (!outlines[other])
                outlines[other] = std::make_unique<Outline>(paths[found]);
            if (outlines[other]->contains(start))
                holders[i] = found;
        });
    }
    return holders;
}

} // namespace vectorkit
