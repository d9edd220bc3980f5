#include <ZTDrawEngineLib/shapes/hatch/EdgeMeetings_p.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zthatch {

namespace {

/** An edge that meets more others than this is crowded: its list would cost more than it saves. */
constexpr std::size_t kCrowd = 8;

constexpr int kEdgesInLeaf = 4;

/** Steps into which half a turn is divided, and the size of a polygon, to place a carrier. */
constexpr double kDirectionSteps = 1 << 30;
constexpr double kDistanceSteps = 1 << 29;

constexpr double kPi = 3.14159265358979323846;

} // namespace

// Which edges may meet, by QLineF's computed answer. Let u = 2^-53 and L the polygon's size, a the
// asking edge's vector, b the other's, c the one between their starts. QLineF computes
// na = (b x c) / (a x b) and nb = (a x c) / (a x b), each product with an error of at most 4u of
// the lengths' product, and wants both from 0 to 1.
//
// Where the angle between a and b is 2^-32 or more, the error of the denominator is at most 2^-19
// of it. The point where the carriers meet then lies beyond the ends of the edges by at most
// 2^-18 L for the denominator's error and 4u|c| 2^32 < 2^-18 L for the numerator's: the edges'
// boxes overlap when one of them is widened by 2^-15 L.
//
// Where the angle is less, the denominator may be nothing but rounding, and edges that lie far
// apart can pass. But nb <= 1 then says that the start of b is at most
// 2^-32 |b| + 4u(|b| + |c|) < 2^-31 L away from the carrier of a: the two lie on one carrier, their
// directions less than one step apart and their distances from the centre too.
EdgeMeetings::EdgeMeetings(const HatchOutline &outline_, const std::vector<char> &hitEdges_)
    : m_outline(outline_), m_hitEdges(hitEdges_),
      m_indexes(static_cast<std::size_t>(outline_.polygonCount())), m_known(hitEdges_.size())
{
}

const EdgeMeetings::Meetings &EdgeMeetings::of(int edge)
{
    Meetings &meetings = m_known[static_cast<std::size_t>(edge)];
    if (meetings.isKnown)
        return meetings;
    meetings.isKnown = true;
    std::vector<int> &edges = meetings.edges;
    forEachCandidate(edge, [&](int other) {
        QPointF point;
        if (edges.size() <= kCrowd && other != edge &&
            m_outline.edge(edge).intersects(m_outline.edge(other), &point) ==
                QLineF::BoundedIntersection &&
            std::find(edges.begin(), edges.end(), other) == edges.end())
            edges.push_back(other);
    });
    meetings.isCrowded = edges.size() > kCrowd;
    if (meetings.isCrowded)
        edges = {};
    return meetings;
}

void EdgeMeetings::forEachCandidate(int edge, const std::function<void(int)> &visit)
{
    const PolygonIndex &index = indexOf(m_outline.polygonOf(edge));
    if (!index.isTame || isVanishing(m_outline.edge(edge))) {
        std::for_each(index.edges.begin(), index.edges.end(), visit);
        return;
    }
    std::for_each(index.vanishing.begin(), index.vanishing.end(), visit);
    if (index.tree.empty())
        return;
    const double margin = std::ldexp(index.size, -15);
    Box box = boxOf(edge);
    box = {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
    visitNear(index, box, 1, visit);
    visitInLine(index, carrierOf(edge, index), visit);
}

EdgeMeetings::PolygonIndex &EdgeMeetings::indexOf(int polygon)
{
    PolygonIndex &index = m_indexes[static_cast<std::size_t>(polygon)];
    if (!index.isReady)
        prepare(polygon, &index);
    return index;
}

void EdgeMeetings::prepare(int polygon, PolygonIndex *index) const
{
    index->isReady = true;
    for (int edge = m_outline.firstEdge(polygon); edge < m_outline.firstEdge(polygon + 1); ++edge) {
        if (!m_hitEdges[static_cast<std::size_t>(edge)])
            continue;
        index->edges.push_back(edge);
        if (isVanishing(m_outline.edge(edge)))
            index->vanishing.push_back(edge);
    }
    buildTree(index);
    if (index->tree.empty())
        return;
    const Box &all = index->tree[1];
    index->size = std::hypot(all.right - all.left, all.bottom - all.top);
    index->centre = {(all.left + all.right) / 2, (all.top + all.bottom) / 2};
    index->isTame = std::max({-all.left, -all.top, all.right, all.bottom}) < 1e100;
    if (index->isTame && index->size > 0.0)
        buildCarriers(index);
}

/** Edges that follow each other lie near each other, so their order alone makes a good tree. */
void EdgeMeetings::buildTree(PolygonIndex *index) const
{
    const auto edgeCount = static_cast<int>(index->edges.size());
    if (edgeCount == 0)
        return;
    index->leafCount = 1;
    while (index->leafCount * kEdgesInLeaf < edgeCount)
        index->leafCount *= 2;
    const double infinity = std::numeric_limits<double>::infinity();
    index->tree.assign(static_cast<std::size_t>(index->leafCount) * 2,
                       {infinity, infinity, -infinity, -infinity});
    for (int i = 0; i < edgeCount; ++i) {
        Box &leaf = index->tree[static_cast<std::size_t>(index->leafCount + i / kEdgesInLeaf)];
        leaf = united(leaf, boxOf(index->edges[static_cast<std::size_t>(i)]));
    }
    for (auto node = static_cast<std::size_t>(index->leafCount) - 1; node > 0; --node)
        index->tree[node] = united(index->tree[2 * node], index->tree[2 * node + 1]);
}

void EdgeMeetings::buildCarriers(PolygonIndex *index) const
{
    for (const int edge : index->edges)
        index->carriers.push_back({carrierOf(edge, *index), edge});
    std::sort(index->carriers.begin(), index->carriers.end(),
              [](const CarriedEdge &a, const CarriedEdge &b) { return a.carrier < b.carrier; });
}

EdgeMeetings::Box EdgeMeetings::boxOf(int edge) const
{
    const QLineF &line = m_outline.edge(edge);
    return {std::min(line.x1(), line.x2()), std::min(line.y1(), line.y2()),
            std::max(line.x1(), line.x2()), std::max(line.y1(), line.y2())};
}

/** The direction counts without its sign; the distance is from the centre, along the normal. */
EdgeMeetings::Carrier EdgeMeetings::carrierOf(int edge, const PolygonIndex &index) const
{
    const QLineF &line = m_outline.edge(edge);
    const double scale = std::max(std::fabs(line.dx()), std::fabs(line.dy()));
    double dx = line.dx() / scale;
    double dy = line.dy() / scale;
    if (dy < 0 || (dy == 0 && dx < 0)) {
        dx = -dx;
        dy = -dy;
    }
    const double length = std::hypot(dx, dy);
    const double distance =
        ((line.y1() - index.centre.y()) * dx - (line.x1() - index.centre.x()) * dy) / length;
    const double direction = std::atan2(dy, dx) / kPi * kDirectionSteps;
    return {static_cast<std::int64_t>(direction) % static_cast<std::int64_t>(kDirectionSteps),
            static_cast<std::int64_t>(std::floor(distance / index.size * kDistanceSteps))};
}

bool EdgeMeetings::Carrier::operator<(const Carrier &other) const
{
    return direction != other.direction ? direction < other.direction : distance < other.distance;
}

bool EdgeMeetings::overlap(const Box &a, const Box &b)
{
    return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

EdgeMeetings::Box EdgeMeetings::united(const Box &a, const Box &b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

/** Whether products with the edge's extent may lose all their digits. */
bool EdgeMeetings::isVanishing(const QLineF &line)
{
    return std::max(std::fabs(line.dx()), std::fabs(line.dy())) < 1e-100;
}

void EdgeMeetings::visitNear(const PolygonIndex &index, const Box &box, int node,
                             const std::function<void(int)> &visit) const
{
    if (!overlap(box, index.tree[static_cast<std::size_t>(node)]))
        return;
    if (node < index.leafCount) {
        visitNear(index, box, 2 * node, visit);
        visitNear(index, box, 2 * node + 1, visit);
        return;
    }
    const int begin = (node - index.leafCount) * kEdgesInLeaf;
    const int end = std::min(begin + kEdgesInLeaf, static_cast<int>(index.edges.size()));
    for (int i = begin; i < end; ++i) {
        const int edge = index.edges[static_cast<std::size_t>(i)];
        if (overlap(box, boxOf(edge)))
            visit(edge);
    }
}

void EdgeMeetings::visitInLine(const PolygonIndex &index, const Carrier &carrier,
                               const std::function<void(int)> &visit) const
{
    const auto turns = static_cast<std::int64_t>(kDirectionSteps);
    for (int step = -1; step <= 1; ++step) {
        Carrier at{carrier.direction + step, carrier.distance};
        if (at.direction < 0 || at.direction >= turns) {
            // Past half a turn the normal points the other way.
            at.direction = (at.direction + turns) % turns;
            at.distance = -at.distance - 1;
        }
        const auto isBefore = [](const CarriedEdge &edge, const Carrier &bound) {
            return edge.carrier < bound;
        };
        const Carrier below{at.direction, at.distance - 1};
        const Carrier beyond{at.direction, at.distance + 2};
        const auto end =
            std::lower_bound(index.carriers.begin(), index.carriers.end(), beyond, isBefore);
        for (auto other =
                 std::lower_bound(index.carriers.begin(), index.carriers.end(), below, isBefore);
             other != end; ++other)
            visit(other->edge);
    }
}

} // namespace zthatch
