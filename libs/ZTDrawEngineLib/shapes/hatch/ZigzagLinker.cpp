#include <ZTDrawEngineLib/shapes/hatch/ZigzagLinker_p.h>

#include <algorithm>
#include <limits>

namespace zthatch {

namespace {

constexpr int kNoRow = std::numeric_limits<int>::max();

/** Trials of it in vain before there are no more, and how many more one earns that succeeds. */
constexpr int kNearestTrials = 64;
constexpr int kTrialsEarned = 3;

/** Steps of a zigzag between fetching a row and taking it. */
constexpr std::size_t kStepsAhead = 6;

/** Rows tried one after the other from an edge that meets very many others. */
constexpr int kCrowdTrials = 64;

} // namespace

ZigzagLinker::ZigzagLinker(const HatchOutline &outline_, const std::vector<char> &hitEdges,
                           const HatchRows &rows_)
    : m_outline(outline_), m_rows(rows_.rows), m_edges(rows_.edges), m_isUsed(m_rows.size()),
      m_walks(outline_, hitEdges), m_meetings(outline_, hitEdges), m_trialsLeft(kNearestTrials)
{
}

void ZigzagLinker::link(int limit_, QVector<QLineF> *lines_)
{
    m_limit = limit_;
    m_lines = lines_;
    // A joint for every row but the first of a zigzag: one line each, and a few more round corners.
    const std::size_t expected = 2 * m_rows.size() + m_rows.size() / 8;
    m_lines->reserve(static_cast<int>(std::min(expected, static_cast<std::size_t>(m_limit))));
    for (int row = 0; row < static_cast<int>(m_rows.size()) && m_lines->size() <= m_limit; ++row) {
        if (!m_isUsed[static_cast<std::size_t>(row)])
            appendZigzag(row);
    }
}

/**
 * Has the memory bring what the next steps ask for, while this one is gone.
 *
 * A zigzag takes one row of each scan line, so its rows lie about as far apart as the last two did,
 * mostly too far for the processor to see where it goes. A wrong guess costs nothing.
 * Inlined by force: compilers leave out the call of a function that only fetches.
 */
[[gnu::always_inline]] inline void ZigzagLinker::fetchAhead(int row, int next) const
{
    const auto ahead =
        static_cast<std::size_t>(next) + kStepsAhead * static_cast<std::size_t>(next - row);
    if (ahead >= m_rows.size())
        return;
    __builtin_prefetch(&m_rows[ahead].first);
    __builtin_prefetch(&m_edges[ahead]);
    __builtin_prefetch(&m_isUsed[ahead]);
    for (const std::unique_ptr<RowLists> &lists : m_lazyEdgeLists) {
        if (lists)
            lists->fetch(static_cast<int>(ahead));
    }
}

void ZigzagLinker::appendZigzag(int row)
{
    m_reached = AtSecond;
    appendRow(row, true);
    while (m_lines->size() <= m_limit) {
        const int next = nextOf(row);
        if (next == kNoRow)
            return;
        fetchAhead(row, next);
        appendJoint(row, next);
        appendRow(next, m_reached == AtFirst);
        m_isUsed[static_cast<std::size_t>(next)] = 1;
        m_reached = m_reached == AtFirst ? AtSecond : AtFirst;
        row = next;
    }
}

const QPointF &ZigzagLinker::reachedPoint(int row) const
{
    const HatchRow &line = at(row);
    return m_reached == AtFirst ? line.first : line.second;
}

int ZigzagLinker::reachedEdge(int row) const
{
    return m_reached == AtFirst ? edgesOf(row).first : edgesOf(row).second;
}

/** Whether and how the zigzag that has reached `row` goes on to `next`. */
ZigzagLinker::Joint ZigzagLinker::jointOf(int row, int next, QPointF *corner)
{
    const HatchRow &a = at(row);
    const HatchRow &b = at(next);
    if (samePoint(a.second, b.first) || samePoint(a.first, b.second))
        return Joint::None;
    const int fromEdge = reachedEdge(row);
    const int toEdge = reachedEdge(next);
    if (m_outline.polygonOf(fromEdge) != m_outline.polygonOf(toEdge) ||
        m_isUsed[static_cast<std::size_t>(next)])
        return Joint::None;
    if (fromEdge == toEdge)
        return Joint::SameEdge;
    if (sideOf(a.first, a.second, b.second) == Side::OnLine)
        return Joint::None;
    if (m_outline.edge(fromEdge).intersects(m_outline.edge(toEdge), corner) ==
        QLineF::BoundedIntersection)
        return Joint::Corner;
    return walkJoint(row, next);
}

ZigzagLinker::Joint ZigzagLinker::walkJoint(int row, int next)
{
    const Side side = walkSide(row);
    if (side == Side::OnLine)
        return Joint::Stop;
    const int end = m_walks.end(reachedEdge(row), walkDirection(side));
    return end == reachedEdge(next) ? Joint::Walk : Joint::Blocked;
}

/** Side of the row on which the edge at its second end starts. */
Side ZigzagLinker::walkSide(int row) const
{
    const HatchRow &line = at(row);
    return sideOf(line.first, line.second, m_outline.edge(edgesOf(row).second).p1());
}

OutlineWalks::Direction ZigzagLinker::walkDirection(Side side) const
{
    return (side == Side::Positive) == (m_reached == AtSecond) ? OutlineWalks::Direction::Against
                                                               : OutlineWalks::Direction::Along;
}

bool ZigzagLinker::canJoin(int row, int next)
{
    QPointF corner;
    const Joint joint = jointOf(row, next, &corner);
    if (joint != Joint::SameEdge && joint != Joint::Corner && joint != Joint::Walk)
        return false;
    m_found = {joint, corner};
    return true;
}

/**
 * First later row that the zigzag can go on to.
 *
 * It ends on the same polygon, mostly on the very next row there. If not, it ends on the edge that
 * `row` ends on, on one that meets this edge, or on the one where the walk from it ends. So the
 * first row is sought on each of these, not among all rows.
 */
int ZigzagLinker::nextOf(int row)
{
    const Side side = walkSide(row);
    if (side == Side::OnLine)
        return nextBeforeStop(row);
    if (isNearestWorthATrial()) {
        const int nearest = nextOnPolygon(row, kNoRow);
        if (nearest < 0)
            return kNoRow;
        if (canJoin(row, nearest)) {
            m_trialsLeft += kTrialsEarned;
            return nearest;
        }
    }
    const int edge = reachedEdge(row);
    int best = bestOnSameEdge(row);
    const int walkEnd = m_walks.end(edge, walkDirection(side));
    if (walkEnd >= 0 && walkEnd != edge)
        best = bestOn(walkEnd, row, best);
    const EdgeMeetings::Meetings &met = m_meetings.of(edge);
    if (met.isCrowded)
        return nextInCrowd(row, best);
    for (const int other : met.edges)
        best = bestOn(other, row, best);
    return best;
}

/** The same for a row that allows no walk: the first row that would need one ends the zigzag. */
int ZigzagLinker::nextBeforeStop(int row)
{
    for (int next = row;;) {
        next = nextOnPolygon(next, kNoRow);
        if (next < 0)
            return kNoRow;
        m_found.joint = jointOf(row, next, &m_found.corner);
        if (m_found.joint != Joint::None)
            return m_found.joint == Joint::Stop ? kNoRow : next;
    }
}

/** The same where the edge meets very many others: one of the next rows nearly always does. */
int ZigzagLinker::nextInCrowd(int row, int best)
{
    const int edge = reachedEdge(row);
    int next = row;
    for (int trial = 0; trial < kCrowdTrials; ++trial) {
        next = nextOnPolygon(next, best);
        if (next < 0)
            return best;
        if (canJoin(row, next))
            return next;
    }
    m_meetings.forEachCandidate(edge, [&](int other) { best = bestOn(other, row, best); });
    return best;
}

/** Whether trying the nearest row of the polygon still pays; counts the trials. */
bool ZigzagLinker::isNearestWorthATrial()
{
    if (m_trialsLeft == 0)
        return false;
    --m_trialsLeft;
    return true;
}

/** First row after `row` and before `end` that ends on the same polygon; -1 without one. */
int ZigzagLinker::nextOnPolygon(int row, int end) { return polygonLists().following(row, end); }

/** First row after `row` that can be joined and ends on the same edge. */
int ZigzagLinker::bestOnSameEdge(int row)
{
    RowLists &lists = edgeLists();
    int next = lists.following(row, kNoRow);
    while (next >= 0 && !canJoin(row, next))
        next = lists.following(next, kNoRow);
    return next < 0 ? kNoRow : next;
}

/** First row after `row`, if one before `best`, that can be joined and ends on an edge. */
int ZigzagLinker::bestOn(int edge, int row, int best)
{
    RowLists &lists = edgeLists();
    for (int next = lists.nextAfter(edge, row, best); next >= 0;
         next = lists.following(next, best)) {
        if (canJoin(row, next))
            return next;
    }
    return best;
}

RowLists &ZigzagLinker::polygonLists()
{
    std::unique_ptr<RowLists> &lists = m_lazyPolygonLists[m_reached];
    if (!lists) {
        const auto polygonOf = [this](int row) { return m_outline.polygonOf(reachedEdge(row)); };
        lists = std::make_unique<RowLists>(m_isUsed, m_outline.polygonCount(), polygonOf);
    }
    return *lists;
}

RowLists &ZigzagLinker::edgeLists()
{
    std::unique_ptr<RowLists> &lists = m_lazyEdgeLists[m_reached];
    if (!lists) {
        const auto edgeOf = [this](int row) { return reachedEdge(row); };
        lists = std::make_unique<RowLists>(m_isUsed, m_outline.edgeCount(), edgeOf);
    }
    return *lists;
}

void ZigzagLinker::appendRow(int row, bool asItStands)
{
    const HatchRow &line = at(row);
    if (asItStands)
        m_lines->append(QLineF(line.first, line.second));
    else
        m_lines->append(QLineF(line.second, line.first));
}

void ZigzagLinker::appendJoint(int row, int next)
{
    const QPointF &from = reachedPoint(row);
    const QPointF &to = reachedPoint(next);
    if (m_found.joint == Joint::SameEdge) {
        m_lines->append(QLineF(from, to));
    } else if (m_found.joint == Joint::Corner) {
        m_lines->append(QLineF(from, m_found.corner));
        m_lines->append(QLineF(m_found.corner, to));
    } else {
        const int edge = reachedEdge(row);
        const OutlineWalks::Direction direction = walkDirection(walkSide(row));
        m_lines->append(QLineF(from, m_walks.start(edge, direction)));
        const QPointF end = m_walks.append(edge, direction, m_limit - m_lines->size(), m_lines);
        m_lines->append(QLineF(end, to));
    }
}

} // namespace zthatch
