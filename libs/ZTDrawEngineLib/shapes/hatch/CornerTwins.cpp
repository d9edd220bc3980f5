#include <ZTDrawEngineLib/shapes/hatch/CornerTwins_p.h>

#include <ZTDrawEngineLib/shapes/hatch/HatchGeometry_p.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace zthatch {

namespace {

/**
 * Calls `visit(begin, end)` for every longest run of corners, sorted by their coordinate, without a
 * gap between. The coordinates are sorted with the corners: asked for, each is another place in
 * memory.
 */
template <typename Coordinate, typename Visit>
void forEachCluster(std::vector<int>::iterator begin, std::vector<int>::iterator end,
                    const Coordinate &coordinate, const Visit &visit)
{
    std::vector<std::pair<double, int>> sorted;
    sorted.reserve(static_cast<std::size_t>(end - begin));
    for (auto corner = begin; corner != end; ++corner)
        sorted.emplace_back(coordinate(*corner), *corner);
    std::sort(sorted.begin(), sorted.end());
    std::transform(sorted.begin(), sorted.end(), begin, [](const auto &at) { return at.second; });

    for (std::size_t first = 0; first < sorted.size();) {
        std::size_t next = first + 1;
        while (next < sorted.size() &&
               sorted[next].first - sorted[next - 1].first <= kSamePointTolerance)
            ++next;
        visit(begin + static_cast<std::ptrdiff_t>(first),
              begin + static_cast<std::ptrdiff_t>(next));
        first = next;
    }
}

} // namespace

CornerTwins::CornerTwins(const HatchOutline &outline_)
    : m_outline(outline_), m_isPrepared(static_cast<std::size_t>(outline_.polygonCount())),
      m_groups(static_cast<std::size_t>(outline_.edgeCount()))
{
}

// Corners at one point, within the tolerance, have no gap between their x nor between their y.
// So groups without gaps hold all of a corner's twins, and perhaps others that are tested one by
// one: being at the same point is not transitive.
void CornerTwins::prepare(int polygon)
{
    m_isPrepared[static_cast<std::size_t>(polygon)] = 1;
    const int firstEdge = m_outline.firstEdge(polygon);
    std::vector<int> corners;
    for (int edge = firstEdge; edge < m_outline.firstEdge(polygon + 1); ++edge) {
        if (std::isfinite(pointOf(edge).x()) && std::isfinite(pointOf(edge).y()))
            corners.push_back(edge);
    }
    using Iterator = std::vector<int>::iterator;
    const auto x = [this](int edge) { return pointOf(edge).x(); };
    const auto y = [this](int edge) { return pointOf(edge).y(); };
    const auto keep = [&](Iterator begin, Iterator end) {
        if (end - begin < 2)
            return;
        std::sort(begin, end);
        const auto first = static_cast<int>(m_members.size());
        const Group group{first, first + static_cast<int>(end - begin)};
        for (Iterator edge = begin; edge != end; ++edge) {
            m_members.push_back(*edge - firstEdge);
            m_groups[static_cast<std::size_t>(*edge)] = group;
        }
    };
    forEachCluster(corners.begin(), corners.end(), x, [&](Iterator begin, Iterator end) {
        if (end - begin > 1)
            forEachCluster(begin, end, y, keep);
    });
}

int CornerTwins::firstFrom(int polygon, int corner, int start)
{
    if (!m_isPrepared[static_cast<std::size_t>(polygon)])
        prepare(polygon);
    const int firstEdge = m_outline.firstEdge(polygon);
    const QPointF point = pointOf(firstEdge + corner);
    const Group &group = m_groups[static_cast<std::size_t>(firstEdge + corner)];
    if (group.begin == group.end)
        return samePoint(point, point) ? corner : -1;

    const auto begin = m_members.begin() + group.begin;
    const auto end = m_members.begin() + group.end;
    const auto from = std::lower_bound(begin, end, start);
    const auto matches = [&](int other) { return samePoint(pointOf(firstEdge + other), point); };
    const auto after = std::find_if(from, end, matches);
    return after != end ? *after : *std::find_if(begin, from, matches);
}

} // namespace zthatch
