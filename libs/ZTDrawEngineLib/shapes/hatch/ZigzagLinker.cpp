#include <ZTDrawEngineLib/shapes/hatch/ZigzagLinker_p.h>

#include <algorithm>
#include <limits>

namespace zthatch {

namespace {

constexpr int kNoRow = std::numeric_limits<int>::max();

/** Rows tried one after the other from an edge that meets very many others. */
constexpr int kCrowdTrials = 64;

} // namespace

ZigzagLinker::ZigzagLinker(const HatchOutline &outline_, const std::vector<char> &hitEdges,
                           const std::vector<HatchRow> &rows_)
    : outline(outline_), rows(rows_), isUsed(rows_.size()), walks(outline_, hitEdges),
      meetings(outline_, hitEdges), edgeLists{
                                        RowLists(isUsed, outline_.edgeCount(),
                                                 [this](int row) { return at(row).secondEdge; }),
                                        RowLists(isUsed, outline_.edgeCount(),
                                                 [this](int row) { return at(row).firstEdge; })}
{
}

void ZigzagLinker::link(int limit_, QVector<QLineF> *lines_)
{
    limit = limit_;
    lines = lines_;
    // A joint for every row but the first of a zigzag, in most hatches one line each.
    lines->reserve(
        static_cast<int>(std::min<std::size_t>(2 * rows.size(), static_cast<std::size_t>(limit))));
    for (int row = 0; row < static_cast<int>(rows.size()) && lines->size() <= limit; ++row) {
        if (!isUsed[static_cast<std::size_t>(row)])
            appendZigzag(row);
    }
}

void ZigzagLinker::appendZigzag(int row)
{
    reached = AtSecond;
    appendRow(row, true);
    while (lines->size() <= limit) {
        const int next = nextOf(row);
        if (next == kNoRow)
            return;
        appendJoint(row, next);
        appendRow(next, reached == AtFirst);
        isUsed[static_cast<std::size_t>(next)] = 1;
        reached = reached == AtFirst ? AtSecond : AtFirst;
        row = next;
    }
}

const QPointF &ZigzagLinker::reachedPoint(int row) const
{
    const HatchRow &line = at(row);
    return reached == AtFirst ? line.first : line.second;
}

int ZigzagLinker::reachedEdge(int row) const
{
    const HatchRow &line = at(row);
    return reached == AtFirst ? line.firstEdge : line.secondEdge;
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
    if (outline.polygonOf(fromEdge) != outline.polygonOf(toEdge) ||
        isUsed[static_cast<std::size_t>(next)])
        return Joint::None;
    if (fromEdge == toEdge)
        return Joint::SameEdge;
    if (sideOf(a.first, a.second, b.second) == Side::OnLine)
        return Joint::None;
    if (outline.edge(fromEdge).intersects(outline.edge(toEdge), corner) ==
        QLineF::BoundedIntersection)
        return Joint::Corner;
    return walkJoint(row, next);
}

ZigzagLinker::Joint ZigzagLinker::walkJoint(int row, int next)
{
    const Side side = walkSide(row);
    if (side == Side::OnLine)
        return Joint::Stop;
    const int end = walks.end(reachedEdge(row), walkDirection(side));
    return end == reachedEdge(next) ? Joint::Walk : Joint::Blocked;
}

/** Side of the row on which the edge at its second end starts. */
Side ZigzagLinker::walkSide(int row) const
{
    const HatchRow &line = at(row);
    return sideOf(line.first, line.second, outline.edge(line.secondEdge).p1());
}

OutlineWalks::Direction ZigzagLinker::walkDirection(Side side) const
{
    return (side == Side::Positive) == (reached == AtSecond) ? OutlineWalks::Direction::Against
                                                             : OutlineWalks::Direction::Along;
}

bool ZigzagLinker::canJoin(int row, int next)
{
    QPointF corner;
    const Joint joint = jointOf(row, next, &corner);
    if (joint != Joint::SameEdge && joint != Joint::Corner && joint != Joint::Walk)
        return false;
    found = {joint, corner};
    return true;
}

/**
 * First later row that the zigzag can go on to.
 *
 * It ends on the edge that `row` ends on, on one that meets this edge, or on the one where the
 * walk from it ends. So the first row is sought on each of these, not among all rows.
 */
int ZigzagLinker::nextOf(int row)
{
    const Side side = walkSide(row);
    if (side == Side::OnLine)
        return nextBeforeStop(row);
    const int edge = reachedEdge(row);
    int best = bestOn(edge, row, kNoRow);
    const int walkEnd = walks.end(edge, walkDirection(side));
    if (walkEnd >= 0 && walkEnd != edge)
        best = bestOn(walkEnd, row, best);
    const EdgeMeetings::Meetings &met = meetings.of(edge);
    if (met.isCrowded)
        return nextInCrowd(row, best);
    for (const int other : met.edges)
        best = bestOn(other, row, best);
    return best;
}

/** The same for a row that allows no walk: the first row that would need one ends the zigzag. */
int ZigzagLinker::nextBeforeStop(int row)
{
    const int polygon = outline.polygonOf(reachedEdge(row));
    for (int next = row;;) {
        next = polygonLists().nextAfter(polygon, next, kNoRow);
        if (next < 0)
            return kNoRow;
        found.joint = jointOf(row, next, &found.corner);
        if (found.joint != Joint::None)
            return found.joint == Joint::Stop ? kNoRow : next;
    }
}

/** The same where the edge meets very many others: one of the next rows nearly always does. */
int ZigzagLinker::nextInCrowd(int row, int best)
{
    const int edge = reachedEdge(row);
    int next = row;
    for (int trial = 0; trial < kCrowdTrials; ++trial) {
        next = polygonLists().nextAfter(outline.polygonOf(edge), next, best);
        if (next < 0)
            return best;
        if (canJoin(row, next))
            return next;
    }
    meetings.forEachCandidate(edge, [&](int other) { best = bestOn(other, row, best); });
    return best;
}

/** First row after `row`, if one before `best`, that can be joined and ends on an edge. */
int ZigzagLinker::bestOn(int edge, int row, int best)
{
    RowLists &lists = edgeLists[reached];
    for (int next = lists.nextAfter(edge, row, best); next >= 0;
         next = lists.nextAfter(edge, next, best)) {
        if (canJoin(row, next))
            return next;
    }
    return best;
}

RowLists &ZigzagLinker::polygonLists()
{
    std::unique_ptr<RowLists> &lists = lazyPolygonLists[reached];
    if (!lists) {
        const auto polygonOf = [this](int row) { return outline.polygonOf(reachedEdge(row)); };
        lists = std::make_unique<RowLists>(isUsed, outline.polygonCount(), polygonOf);
    }
    return *lists;
}

void ZigzagLinker::appendRow(int row, bool asItStands)
{
    const HatchRow &line = at(row);
    if (asItStands)
        lines->append(QLineF(line.first, line.second));
    else
        lines->append(QLineF(line.second, line.first));
}

void ZigzagLinker::appendJoint(int row, int next)
{
    const QPointF &from = reachedPoint(row);
    const QPointF &to = reachedPoint(next);
    if (found.joint == Joint::SameEdge) {
        lines->append(QLineF(from, to));
    } else if (found.joint == Joint::Corner) {
        lines->append(QLineF(from, found.corner));
        lines->append(QLineF(found.corner, to));
    } else {
        const int edge = reachedEdge(row);
        const OutlineWalks::Direction direction = walkDirection(walkSide(row));
        lines->append(QLineF(from, walks.start(edge, direction)));
        const QPointF end = walks.append(edge, direction, limit - lines->size(), lines);
        lines->append(QLineF(end, to));
    }
}

} // namespace zthatch
