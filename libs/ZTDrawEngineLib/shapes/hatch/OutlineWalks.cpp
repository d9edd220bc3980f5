#include <ZTDrawEngineLib/shapes/hatch/OutlineWalks_p.h>

namespace zthatch {

namespace {

constexpr int kEndless = -1;
constexpr int kUnknown = -2;
constexpr int kUnderWay = -3;

} // namespace

OutlineWalks::OutlineWalks(const HatchOutline &outline_, const std::vector<char> &hitEdges_)
    : m_outline(outline_), m_hitEdges(hitEdges_), m_twins(outline_)
{
    for (const int direction : {0, 1}) {
        m_starts[direction].assign(m_hitEdges.size(), kUnknown);
        m_ends[direction].assign(m_hitEdges.size(), kUnknown);
    }
}

QPointF OutlineWalks::start(int edge, Direction direction) const
{
    const QLineF &line = m_outline.edge(edge);
    return direction == Direction::Against ? line.p1() : line.p2();
}

/** First edge of a walk: searched from the polygon's first edge. */
int OutlineWalks::firstStep(int edge, Direction direction) { return stepFrom(edge, 0, direction); }

/** Edge after one that the walk has taken: searched from the one behind it. */
int OutlineWalks::nextStep(int edge, Direction direction)
{
    const int firstEdge = m_outline.firstEdge(m_outline.polygonOf(edge));
    return stepFrom(edge, edge - firstEdge + 1, direction);
}

/** First edge, from place `from` of the polygon on, that continues from the far end of `edge`. */
int OutlineWalks::stepFrom(int edge, int from, Direction direction)
{
    const int polygon = m_outline.polygonOf(edge);
    const int firstEdge = m_outline.firstEdge(polygon);
    const int count = m_outline.firstEdge(polygon + 1) - firstEdge;
    const int place = edge - firstEdge;
    if (direction == Direction::Along) {
        const int corner = m_twins.firstFrom(polygon, (place + 1) % count, from % count);
        return corner < 0 ? kEndless : firstEdge + corner;
    }
    // Edge k ends at corner k + 1, so corners are searched one further on.
    const int corner = m_twins.firstFrom(polygon, place, (from + 1) % count);
    return corner < 0 ? kEndless : firstEdge + (corner + count - 1) % count;
}

int OutlineWalks::end(int edge, Direction direction)
{
    int &known = m_starts[static_cast<std::size_t>(direction)][static_cast<std::size_t>(edge)];
    if (known == kUnknown) {
        const int first = firstStep(edge, direction);
        known = first == kEndless ? kEndless : endFrom(first, direction);
    }
    return known;
}

/** Where a walk ends that has come upon an edge, and with it all walks over the same edges. */
int OutlineWalks::endFrom(int edge, Direction direction)
{
    std::vector<int> &known = m_ends[static_cast<std::size_t>(direction)];
    const auto at = [&](int number) -> int & { return known[static_cast<std::size_t>(number)]; };
    int reached = edge;
    while (reached != kEndless && !hasHits(reached) && at(reached) == kUnknown) {
        at(reached) = kUnderWay;
        reached = nextStep(reached, direction);
    }
    // An edge of this very walk again: it goes round for ever.
    int answer = reached;
    if (reached != kEndless && !hasHits(reached))
        answer = at(reached) == kUnderWay ? kEndless : at(reached);
    for (int i = edge; i != kEndless && !hasHits(i) && at(i) == kUnderWay;
         i = nextStep(i, direction))
        at(i) = answer;
    return answer;
}

QPointF OutlineWalks::append(int edge, Direction direction, int room, QVector<QLineF> *lines)
{
    int last = edge;
    for (int i = firstStep(edge, direction); !hasHits(i); i = nextStep(i, direction)) {
        if (room-- > 0)
            lines->append(m_outline.edge(i));
        last = i;
    }
    return start(last, direction);
}

} // namespace zthatch
