#include <ZTDrawEngineLib/shapes/hatch/ZigzagLinker_p.h>

#include <limits>

namespace zthatch {

namespace {

constexpr int kNoRow = std::numeric_limits<int>::max();

/** Rows tried one after the other from an edge that meets very many others. */
constexpr int kCrowdTrials = 64;

template <typename KeyOf>
RowLists listsBy(const std::vector<HatchRow> &rows, int keyCount, const KeyOf &keyOf)
{
    std::vector<int> keys;
    keys.reserve(rows.size());
    for (const HatchRow &row : rows)
        keys.push_back(keyOf(row));
    return RowLists(keys, keyCount);
}

} // namespace

ZigzagLinker::ZigzagLinker(const HatchOutline &outline_, const std::vector<char> &hitEdges,
                           const std::vector<HatchRow> &rows_)
    : outline(outline_), rows(rows_), walks(outline_, hitEdges), meetings(outline_, hitEdges),
      edgeLists{
          listsBy(rows_, outline_.edgeCount(), [](const HatchRow &row) { return row.secondEdge; }),
          listsBy(rows_, outline_.edgeCount(), [](const HatchRow &row) { return row.firstEdge; })},
      isUsed(rows_.size())
{
}

void ZigzagLinker::link(int limit_, QVector<QLineF> *lines_)
{
    limit = limit_;
    lines = lines_;
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
        take(next);
        reached = reached == AtFirst ? AtSecond : AtFirst;
        row = next;
    }
}

const QPointF &ZigzagLinker::reachedPoint(int row) const
{
    const HatchRow &at = rows[static_cast<std::size_t>(row)];
    return reached == AtFirst ? at.first : at.second;
}

int ZigzagLinker::reachedEdge(int row) const
{
    const HatchRow &at = rows[static_cast<std::size_t>(row)];
    return reached == AtFirst ? at.firstEdge : at.secondEdge;
}

/** Whether and how the zigzag that has reached `row` goes on to `next`. */
ZigzagLinker::Joint ZigzagLinker::jointOf(int row, int next, QPointF *corner)
{
    const HatchRow &a = rows[static_cast<std::size_t>(row)];
    const HatchRow &b = rows[static_cast<std::size_t>(next)];
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
    const HatchRow &at = rows[static_cast<std::size_t>(row)];
    return sideOf(at.first, at.second, outline.edge(at.secondEdge).p1());
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
    return joint == Joint::SameEdge || joint == Joint::Corner || joint == Joint::Walk;
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
        QPointF corner;
        const Joint joint = jointOf(row, next, &corner);
        if (joint != Joint::None)
            return joint == Joint::Stop ? kNoRow : next;
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
        lists = std::make_unique<RowLists>(
            listsBy(rows, outline.polygonCount(), [this](const HatchRow &row) {
                return outline.polygonOf(reached == AtFirst ? row.firstEdge : row.secondEdge);
            }));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            if (isUsed[row])
                lists->remove(static_cast<int>(row));
        }
    }
    return *lists;
}

void ZigzagLinker::take(int row)
{
    isUsed[static_cast<std::size_t>(row)] = 1;
    for (RowLists &lists : edgeLists)
        lists.remove(row);
    for (const std::unique_ptr<RowLists> &lists : lazyPolygonLists) {
        if (lists)
            lists->remove(row);
    }
}

void ZigzagLinker::appendRow(int row, bool asItStands)
{
    const HatchRow &at = rows[static_cast<std::size_t>(row)];
    if (asItStands)
        lines->append(QLineF(at.first, at.second));
    else
        lines->append(QLineF(at.second, at.first));
}

void ZigzagLinker::appendJoint(int row, int next)
{
    const QPointF &from = reachedPoint(row);
    const QPointF &to = reachedPoint(next);
    QPointF corner;
    const Joint joint = jointOf(row, next, &corner);
    if (joint == Joint::SameEdge) {
        lines->append(QLineF(from, to));
    } else if (joint == Joint::Corner) {
        lines->append(QLineF(from, corner));
        lines->append(QLineF(corner, to));
    } else {
        const int edge = reachedEdge(row);
        const OutlineWalks::Direction direction = walkDirection(walkSide(row));
        lines->append(QLineF(from, walks.start(edge, direction)));
        const QPointF end = walks.append(edge, direction, limit - lines->size(), lines);
        lines->append(QLineF(end, to));
    }
}

} // namespace zthatch
