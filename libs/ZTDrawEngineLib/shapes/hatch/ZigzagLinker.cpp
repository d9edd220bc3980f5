#include <ZTDrawEngineLib/shapes/hatch/ZigzagLinker_p.h>

#include <algorithm>
#include <limits>

namespace zthatch {

namespace {

constexpr int kNoRow = std::numeric_limits<int>::max();

/** Rows among which the next one of a polygon is looked for: those of one or two scan lines. */
constexpr int kNearRows = 48;

/** Trials of it in vain before there are no more, and how many more one earns that succeeds. */
constexpr int kNearestTrials = 64;
constexpr int kTrialsEarned = 3;

/** Rows tried one after the other from an edge that meets very many others. */
constexpr int kCrowdTrials = 64;

} // namespace

ZigzagLinker::ZigzagLinker(const HatchOutline &outline_, const std::vector<char> &hitEdges,
                           const std::vector<HatchRow> &rows_)
    : m_outline(outline_), m_rows(rows_), m_isUsed(rows_.size()), m_walks(outline_, hitEdges),
      m_meetings(outline_, hitEdges), m_trialsLeft(kNearestTrials)
{
}

void ZigzagLinker::link(int limit_, QVector<QLineF> *lines_)
{
    m_limit = limit_;
    m_lines = lines_;
    // A joint for every row but the first of a zigzag, in most hatches one line each.
    m_lines->reserve(static_cast<int>(
        std::min<std::size_t>(2 * m_rows.size(), static_cast<std::size_t>(m_limit))));
    for (int row = 0; row < static_cast<int>(m_rows.size()) && m_lines->size() <= m_limit; ++row) {
        if (!m_isUsed[static_cast<std::size_t>(row)])
            appendZigzag(row);
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
    const HatchRow &line = at(row);
    return m_reached == AtFirst ? line.firstEdge : line.secondEdge;
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
    return sideOf(line.first, line.second, m_outline.edge(line.secondEdge).p1());
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
        const int nearest = nearestOf(row);
        if (nearest < 0)
            return kNoRow;
        if (canJoin(row, nearest)) {
            m_trialsLeft += kTrialsEarned;
            return nearest;
        }
    }
    const int edge = reachedEdge(row);
    int best = bestOn(edge, row, kNoRow);
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
        next = nextOnPolygon(row, next, kNoRow);
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
        next = nextOnPolygon(row, next, best);
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

/** First later row on the polygon, mostly one of the next rows of all; -1 without one. */
int ZigzagLinker::nearestOf(int row)
{
    const int polygon = m_outline.polygonOf(reachedEdge(row));
    const int end = std::min(row + 1 + kNearRows, static_cast<int>(m_rows.size()));
    for (int next = row + 1; next < end; ++next) {
        if (!m_isUsed[static_cast<std::size_t>(next)] &&
            m_outline.polygonOf(reachedEdge(next)) == polygon)
            return next;
    }
    return nextOnPolygon(row, row, kNoRow);
}

/** First row after another and before `end` on the polygon that `row` ends on; -1 without one. */
int ZigzagLinker::nextOnPolygon(int row, int after, int end)
{
    return polygonLists().nextAfter(m_outline.polygonOf(reachedEdge(row)), after, end);
}

/** First row after `row`, if one before `best`, that can be joined and ends on an edge. */
int ZigzagLinker::bestOn(int edge, int row, int best)
{
    RowLists &lists = edgeLists();
    for (int next = lists.nextAfter(edge, row, best); next >= 0;
         next = lists.nextAfter(edge, next, best)) {
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
