#include <vectorkit/clean/EndTree_p.h>

#include <algorithm>

namespace vectorkit {

namespace {

double coordinate(const QPointF &point, int depth)
{
    return depth % 2 == 0 ? point.x() : point.y();
}

} // namespace

EndTree::EndTree(const std::vector<QPointF> &places) : m_positions(places.size())
{
    m_nodes.reserve(places.size());
    for (std::size_t i = 0; i < places.size(); ++i)
        m_nodes.push_back({places[i], static_cast<int>(i), 0, false});
    build(0, static_cast<int>(m_nodes.size()), 0);
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
        m_positions[static_cast<std::size_t>(m_nodes[i].point)] = static_cast<int>(i);
}

void EndTree::build(int low, int high, int depth)
{
    if (high - low < 2)
        return;
    const int middle = low + (high - low) / 2;
    std::nth_element(m_nodes.begin() + low, m_nodes.begin() + middle, m_nodes.begin() + high,
                     [depth](const Node &a, const Node &b) {
                         const double left = coordinate(a.place, depth);
                         const double right = coordinate(b.place, depth);
                         return left != right ? left < right : a.point < b.point;
                     });
    build(low, middle, depth + 1);
    build(middle + 1, high, depth + 1);
}

void EndTree::setOn(int point, bool on)
{
    const int wanted = m_positions[static_cast<std::size_t>(point)];
    Node &changed = m_nodes[static_cast<std::size_t>(wanted)];
    if (changed.isOn == on)
        return;
    changed.isOn = on;
    int low = 0;
    int high = static_cast<int>(m_nodes.size());
    while (low < high) {
        const int middle = low + (high - low) / 2;
        m_nodes[static_cast<std::size_t>(middle)].on += on ? 1 : -1;
        if (middle == wanted)
            break;
        if (wanted < middle)
            high = middle;
        else
            low = middle + 1;
    }
}

int EndTree::nearest(const QPointF &place) const
{
    Search found{place, -1, 0.0};
    search(0, static_cast<int>(m_nodes.size()), 0, &found);
    return found.best;
}

void EndTree::search(int low, int high, int depth, Search *found) const
{
    if (low >= high)
        return;
    const int middle = low + (high - low) / 2;
    const Node &node = m_nodes[static_cast<std::size_t>(middle)];
    if (node.on == 0)
        return;
    if (node.isOn) {
        const QPointF way = node.place - found->place;
        const double square = QPointF::dotProduct(way, way);
        if (found->best < 0 || square < found->square ||
            (square == found->square && node.point < found->best)) {
            found->best = node.point;
            found->square = square;
        }
    }
    const double side = coordinate(found->place, depth) - coordinate(node.place, depth);
    const bool isLow = side <= 0.0;
    search(isLow ? low : middle + 1, isLow ? middle : high, depth + 1, found);
    if (found->best < 0 || side * side <= found->square)
        search(isLow ? middle + 1 : low, isLow ? high : middle, depth + 1, found);
}

} // namespace vectorkit
