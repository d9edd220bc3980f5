#include <jobkit/checks/LineOverlaps_p.h>

#include <QtCore/QSet>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

namespace jobkit {

namespace {

constexpr double kNearMm = 0.001;
constexpr size_t kMostInACell = 200; // bounds the pairs where everything lies in one place

struct Segment
{
    QPointF a;
    QPointF b;
    int piece;
    double length;
};

std::vector<Segment> segmentsOf(const QVector<PlanPiece> &pieces)
{
    std::vector<Segment> segments;
    for (int i = 0; i < pieces.size(); ++i) {
        const QPolygonF &points = pieces[i].pointsMm;
        for (int k = 1; k < points.size(); ++k) {
            const QPointF step = points[k] - points[k - 1];
            const double length = std::hypot(step.x(), step.y());
            if (length > kNearMm)
                segments.push_back({points[k - 1], points[k], i, length});
        }
    }
    return segments;
}

/** Cells of the plane with the segments that pass through or beside them. */
class Cells
{
public:
    explicit Cells(const std::vector<Segment> &segments)
    {
        double length = 0.0;
        for (const Segment &segment : segments)
            length += segment.length;
        // About as many entries as segments, and some more.
        m_size = std::max(length / std::max<double>(1.0, double(segments.size())), 10.0 * kNearMm);
        for (size_t i = 0; i < segments.size(); ++i)
            add(segments[i], static_cast<int>(i));
    }

    template <class Visit>
    void forEach(Visit visit) const
    {
        for (const auto &cell : m_cells)
            visit(cell.second);
    }

private:
    qint64 index(double mm) const { return static_cast<qint64>(std::floor(mm / m_size)); }

    /** Column by column, the rows that the segment comes near there. */
    void add(const Segment &segment, int number)
    {
        const QPointF &left = segment.a.x() < segment.b.x() ? segment.a : segment.b;
        const QPointF &right = segment.a.x() < segment.b.x() ? segment.b : segment.a;
        const double width = right.x() - left.x();
        const double slope = width > kNearMm ? (right.y() - left.y()) / width : 0.0;
        for (qint64 x = index(left.x() - kNearMm); x <= index(right.x() + kNearMm); ++x) {
            double from = left.y();
            double to = right.y();
            if (slope != 0.0) {
                const double low = std::max(left.x(), double(x) * m_size - kNearMm);
                const double high = std::min(right.x(), double(x + 1) * m_size + kNearMm);
                from = left.y() + slope * (low - left.x());
                to = left.y() + slope * (high - left.x());
            }
            if (from > to)
                std::swap(from, to);
            for (qint64 y = index(from - kNearMm); y <= index(to + kNearMm); ++y)
                m_cells[key(x, y)].push_back(number);
        }
    }

    static quint64 key(qint64 x, qint64 y)
    {
        return (static_cast<quint64>(x) << 32U) ^ (static_cast<quint64>(y) & 0xffffffffU);
    }

    double m_size = 1.0;
    std::unordered_map<quint64, std::vector<int>> m_cells;
};

/** How far along `line` a point lies, and how far off it. */
struct Foot
{
    double along;
    double off;
};

Foot footOn(const Segment &line, const QPointF &point)
{
    const QPointF unit = (line.b - line.a) / line.length;
    const QPointF step = point - line.a;
    return {QPointF::dotProduct(step, unit), std::abs(step.x() * unit.y() - step.y() * unit.x())};
}

/** Whether the shorter lies on the longer for a stretch, and which. */
bool overlap(const Segment &one, const Segment &other, LineOverlap *found)
{
    const Segment &longer = one.length < other.length ? other : one;
    const Segment &shorter = one.length < other.length ? one : other;
    const Foot a = footOn(longer, shorter.a);
    const Foot b = footOn(longer, shorter.b);
    if (a.off > kNearMm || b.off > kNearMm)
        return false;
    const double from = std::max(0.0, std::min(a.along, b.along));
    const double to = std::min(longer.length, std::max(a.along, b.along));
    if (to - from <= kNearMm)
        return false;
    found->isWhole = to - from >= longer.length - 2.0 * kNearMm;
    found->atMm = longer.a + (longer.b - longer.a) * ((from + to) / 2.0 / longer.length);
    return true;
}

} // namespace

QVector<LineOverlap> lineOverlaps(const QVector<PlanPiece> &pieces)
{
    const std::vector<Segment> segments = segmentsOf(pieces);
    QSet<QPair<int, int>> known;
    QVector<LineOverlap> overlaps;
    Cells(segments).forEach([&](const std::vector<int> &cell) {
        const size_t count = std::min(cell.size(), kMostInACell);
        for (size_t i = 0; i < count; ++i) {
            for (size_t k = i + 1; k < count; ++k) {
                const Segment &one = segments[static_cast<size_t>(cell[i])];
                const Segment &other = segments[static_cast<size_t>(cell[k])];
                LineOverlap found;
                if (!overlap(one, other, &found))
                    continue;
                found.first = std::min(one.piece, other.piece);
                found.second = std::max(one.piece, other.piece);
                const QPair<int, int> pair(pieces[found.first].object, pieces[found.second].object);
                if (known.contains(pair))
                    continue;
                known.insert(pair);
                overlaps.append(found);
            }
        }
    });
    std::sort(overlaps.begin(), overlaps.end(), [](const LineOverlap &a, const LineOverlap &b) {
        return std::make_pair(a.first, a.second) < std::make_pair(b.first, b.second);
    });
    return overlaps;
}

} // namespace jobkit
