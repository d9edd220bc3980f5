#include <jobkit/plan/PointIndex_p.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace jobkit {

namespace {

constexpr int kLeafPoints = 8;

double squared(const QPointF &a, const QPointF &b)
{
    const QPointF step = b - a;
    return step.x() * step.x() + step.y() * step.y();
}

} // namespace

PointIndex::PointIndex(std::vector<Entry> points)
    : m_entries(std::move(points)), m_indexes(m_entries.size()), m_leafOf(m_entries.size(), -1),
      m_isGone(m_entries.size(), 0)
{
    std::iota(m_indexes.begin(), m_indexes.end(), 0);
    for (size_t i = 0; i < m_entries.size(); ++i) {
        const auto owner = static_cast<size_t>(m_entries[i].owner);
        if (owner >= m_ofOwner.size())
            m_ofOwner.resize(owner + 1);
        m_ofOwner[owner].push_back(static_cast<int>(i));
    }
    if (!m_entries.empty())
        build(0, static_cast<int>(m_entries.size()), -1);
}

int PointIndex::build(int from, int to, int parent)
{
    constexpr double kFar = std::numeric_limits<double>::infinity();
    Node node{kFar, kFar, -kFar, -kFar, from, to, to - from, parent};
    for (int i = from; i < to; ++i) {
        const QPointF &at = m_entries[m_indexes[i]].at;
        node.left = std::min(node.left, at.x());
        node.top = std::min(node.top, at.y());
        node.right = std::max(node.right, at.x());
        node.bottom = std::max(node.bottom, at.y());
    }
    const int index = static_cast<int>(m_nodes.size());
    m_nodes.push_back(node);
    if (to - from <= kLeafPoints) {
        for (int i = from; i < to; ++i)
            m_leafOf[m_indexes[i]] = index;
        return index;
    }
    const bool byX = node.right - node.left > node.bottom - node.top;
    const int middle = (from + to) / 2;
    std::nth_element(m_indexes.begin() + from, m_indexes.begin() + middle, m_indexes.begin() + to,
                     [&](int a, int b) {
                         const double u = byX ? m_entries[a].at.x() : m_entries[a].at.y();
                         const double v = byX ? m_entries[b].at.x() : m_entries[b].at.y();
                         return u < v || (u == v && a < b);
                     });
    const int low = build(from, middle, index);
    const int high = build(middle, to, index);
    m_nodes[index].low = low;
    m_nodes[index].high = high;
    return index;
}

double PointIndex::squaredDistance(const Node &node, const QPointF &to) const
{
    const double x = std::max({node.left - to.x(), 0.0, to.x() - node.right});
    const double y = std::max({node.top - to.y(), 0.0, to.y() - node.bottom});
    return x * x + y * y;
}

void PointIndex::search(int index, const QPointF &to, Found *best) const
{
    const Node &node = m_nodes[index];
    if (node.alive == 0 || squaredDistance(node, to) > best->squared)
        return;
    if (node.low < 0) {
        for (int i = node.from; i < node.to; ++i) {
            const int point = m_indexes[i];
            const double away = squared(m_entries[point].at, to);
            const bool isBetter =
                away < best->squared || (away == best->squared && point < best->point);
            if (m_isGone[point] == 0 && isBetter)
                *best = {away, point};
        }
        return;
    }
    const bool lowFirst =
        squaredDistance(m_nodes[node.low], to) <= squaredDistance(m_nodes[node.high], to);
    search(lowFirst ? node.low : node.high, to, best);
    search(lowFirst ? node.high : node.low, to, best);
}

const PointIndex::Entry *PointIndex::nearest(const QPointF &to) const
{
    Found best{std::numeric_limits<double>::infinity(), std::numeric_limits<int>::max()};
    if (!m_nodes.empty())
        search(0, to, &best);
    return best.point == std::numeric_limits<int>::max() ? nullptr : &m_entries[best.point];
}

void PointIndex::collect(int index, const QPointF &to, int but, size_t most,
                         std::vector<Found> *found) const
{
    const Node &node = m_nodes[index];
    const bool isFull = found->size() >= most;
    if (node.alive == 0 || (isFull && squaredDistance(node, to) >= found->back().squared))
        return;
    if (node.low >= 0) {
        const bool lowFirst =
            squaredDistance(m_nodes[node.low], to) <= squaredDistance(m_nodes[node.high], to);
        collect(lowFirst ? node.low : node.high, to, but, most, found);
        collect(lowFirst ? node.high : node.low, to, but, most, found);
        return;
    }
    for (int i = node.from; i < node.to; ++i) {
        const int point = m_indexes[i];
        const int owner = m_entries[point].owner;
        if (m_isGone[point] != 0 || owner == but)
            continue;
        const Found next{squared(m_entries[point].at, to), point};
        const auto same = std::find_if(found->begin(), found->end(), [&](const Found &known) {
            return m_entries[known.point].owner == owner;
        });
        if (same != found->end()) {
            if (same->squared <= next.squared)
                continue;
            found->erase(same);
        } else if (found->size() >= most) {
            if (found->back().squared <= next.squared)
                continue;
            found->pop_back();
        }
        const auto place =
            std::upper_bound(found->begin(), found->end(), next,
                             [](const Found &a, const Found &b) { return a.squared < b.squared; });
        found->insert(place, next);
    }
}

std::vector<int> PointIndex::nearestOwners(const QPointF &to, int most, int but) const
{
    std::vector<Found> found;
    if (!m_nodes.empty() && most > 0)
        collect(0, to, but, static_cast<size_t>(most), &found);
    std::vector<int> owners;
    owners.reserve(found.size());
    for (const Found &one : found)
        owners.push_back(m_entries[one.point].owner);
    return owners;
}

void PointIndex::remove(int owner)
{
    for (const int point : m_ofOwner[owner]) {
        if (m_isGone[point] != 0)
            continue;
        m_isGone[point] = 1;
        for (int node = m_leafOf[point]; node >= 0; node = m_nodes[node].parent)
            --m_nodes[node].alive;
    }
}

} // namespace jobkit
