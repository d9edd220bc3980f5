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
    : entries(std::move(points)), indexes(entries.size()), leafOf(entries.size(), -1),
      isGone(entries.size(), 0)
{
    std::iota(indexes.begin(), indexes.end(), 0);
    for (size_t i = 0; i < entries.size(); ++i) {
        const auto owner = static_cast<size_t>(entries[i].owner);
        if (owner >= ofOwner.size())
            ofOwner.resize(owner + 1);
        ofOwner[owner].push_back(static_cast<int>(i));
    }
    if (!entries.empty())
        build(0, static_cast<int>(entries.size()), -1);
}

int PointIndex::build(int from, int to, int parent)
{
    constexpr double kFar = std::numeric_limits<double>::infinity();
    Node node{kFar, kFar, -kFar, -kFar, from, to, to - from, parent};
    for (int i = from; i < to; ++i) {
        const QPointF &at = entries[indexes[i]].at;
        node.left = std::min(node.left, at.x());
        node.top = std::min(node.top, at.y());
        node.right = std::max(node.right, at.x());
        node.bottom = std::max(node.bottom, at.y());
    }
    const int index = static_cast<int>(nodes.size());
    nodes.push_back(node);
    if (to - from <= kLeafPoints) {
        for (int i = from; i < to; ++i)
            leafOf[indexes[i]] = index;
        return index;
    }
    const bool byX = node.right - node.left > node.bottom - node.top;
    const int middle = (from + to) / 2;
    std::nth_element(indexes.begin() + from, indexes.begin() + middle, indexes.begin() + to,
                     [&](int a, int b) {
                         const double u = byX ? entries[a].at.x() : entries[a].at.y();
                         const double v = byX ? entries[b].at.x() : entries[b].at.y();
                         return u < v || (u == v && a < b);
                     });
    const int low = build(from, middle, index);
    const int high = build(middle, to, index);
    nodes[index].low = low;
    nodes[index].high = high;
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
    const Node &node = nodes[index];
    if (node.alive == 0 || squaredDistance(node, to) > best->squared)
        return;
    if (node.low < 0) {
        for (int i = node.from; i < node.to; ++i) {
            const int point = indexes[i];
            const double away = squared(entries[point].at, to);
            const bool isBetter =
                away < best->squared || (away == best->squared && point < best->point);
            if (isGone[point] == 0 && isBetter)
                *best = {away, point};
        }
        return;
    }
    const bool lowFirst =
        squaredDistance(nodes[node.low], to) <= squaredDistance(nodes[node.high], to);
    search(lowFirst ? node.low : node.high, to, best);
    search(lowFirst ? node.high : node.low, to, best);
}

const PointIndex::Entry *PointIndex::nearest(const QPointF &to) const
{
    Found best{std::numeric_limits<double>::infinity(), std::numeric_limits<int>::max()};
    if (!nodes.empty())
        search(0, to, &best);
    return best.point == std::numeric_limits<int>::max() ? nullptr : &entries[best.point];
}

void PointIndex::collect(int index, const QPointF &to, int but, size_t most,
                         std::vector<Found> *found) const
{
    const Node &node = nodes[index];
    const bool isFull = found->size() >= most;
    if (node.alive == 0 || (isFull && squaredDistance(node, to) >= found->back().squared))
        return;
    if (node.low >= 0) {
        const bool lowFirst =
            squaredDistance(nodes[node.low], to) <= squaredDistance(nodes[node.high], to);
        collect(lowFirst ? node.low : node.high, to, but, most, found);
        collect(lowFirst ? node.high : node.low, to, but, most, found);
        return;
    }
    for (int i = node.from; i < node.to; ++i) {
        const int point = indexes[i];
        const int owner = entries[point].owner;
        if (isGone[point] != 0 || owner == but)
            continue;
        const Found next{squared(entries[point].at, to), point};
        const auto same = std::find_if(found->begin(), found->end(), [&](const Found &known) {
            return entries[known.point].owner == owner;
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
    if (!nodes.empty() && most > 0)
        collect(0, to, but, static_cast<size_t>(most), &found);
    std::vector<int> owners;
    owners.reserve(found.size());
    for (const Found &one : found)
        owners.push_back(entries[one.point].owner);
    return owners;
}

void PointIndex::remove(int owner)
{
    for (const int point : ofOwner[owner]) {
        if (isGone[point] != 0)
            continue;
        isGone[point] = 1;
        for (int node = leafOf[point]; node >= 0; node = nodes[node].parent)
            --nodes[node].alive;
    }
}

} // namespace jobkit
