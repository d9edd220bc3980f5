#include <jobkit/plan/JobTimes.h>

#include <jobkit/plan/GantryMotion_p.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace jobkit {

namespace {

constexpr double kShortestJumpMm = 0.001;
constexpr double kSecondsPerUs = 1e-6;
constexpr double kSecondsPerMs = 1e-3;

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(b.x() - a.x(), b.y() - a.y());
}

/** How fast a pen goes, no faster than the machine, and how long it stays on a dot. */
struct Pace
{
    double mmPerS = 0.0;
    double dotS = 0.0;
};

class PenPaces
{
public:
    PenPaces(const QVector<Pen> &penList, const MachineProfile &profile)
        : m_pens(penList), m_mostMmPerS(profile.mostSpeedMmPerS)
    {
    }

    Pace of(int number)
    {
        const auto known = m_paces.find(number);
        if (known != m_paces.end())
            return known->second;
        const Pen pen = penOf(m_pens, number);
        const Pace pace{std::min(pen.speedMmPerS, m_mostMmPerS), pen.dotMs * kSecondsPerMs};
        m_paces.emplace(number, pace);
        return pace;
    }

private:
    const QVector<Pen> &m_pens;
    double m_mostMmPerS;
    std::unordered_map<int, Pace> m_paces;
};

JobTimes emptyTimes(const JobPlan &plan)
{
    JobTimes times;
    times.firstVertex.reserve(static_cast<size_t>(plan.pieces.size()) + 1);
    qint64 count = 0;
    for (const PlanPiece &piece : plan.pieces) {
        times.firstVertex.push_back(count);
        count += piece.pointsMm.size();
    }
    times.firstVertex.push_back(count);
    times.vertexS.assign(static_cast<size_t>(count), 0.0);
    return times;
}

void addSums(const PlanPiece &piece, const TimeSums &sums, JobTimes *times)
{
    times->all += sums;
    times->byPen[piece.pen] += sums;
    times->byObject[piece.object] += sums;
    times->byPass[piece.pass] += sums;
}

/** The share of the corner delay where the way turns: 0 straight on, 1 back. */
double cornerShare(const QPointF &in, const QPointF &out)
{
    const double lengths = std::hypot(in.x(), in.y()) * std::hypot(out.x(), out.y());
    const double cosine = QPointF::dotProduct(in, out) / lengths;
    return (1.0 - std::clamp(cosine, -1.0, 1.0)) / 2.0;
}

/** Marks one piece from `now` on; `vertexS` takes the time of each of its points. */
TimeSums galvoPiece(const PlanPiece &piece, const Pace &pace, const MachineProfile &profile,
                    double now, double *vertexS)
{
    TimeSums sums;
    QPointF before;
    vertexS[0] = now;
    for (int i = 1; i < piece.pointsMm.size(); ++i) {
        const QPointF step = piece.pointsMm[i] - piece.pointsMm[i - 1];
        if (!step.isNull()) {
            if (!before.isNull())
                sums.delayS += profile.cornerDelayUs * kSecondsPerUs * cornerShare(before, step);
            before = step;
        }
        sums.markS += std::hypot(step.x(), step.y()) / pace.mmPerS;
        vertexS[i] = now + sums.totalS();
    }
    if (piece.isDot())
        sums.delayS += pace.dotS;
    sums.delayS += profile.markDelayUs * kSecondsPerUs;
    return sums;
}

JobTimes galvoTimes(const JobPlan &plan, const QVector<Pen> &pens, const MachineProfile &profile,
                    const std::optional<QPointF> &headMm)
{
    JobTimes times = emptyTimes(plan);
    PenPaces paces(pens, profile);
    std::optional<QPointF> head = headMm;
    double now = 0.0;
    for (int i = 0; i < plan.pieces.size(); ++i) {
        const PlanPiece &piece = plan.pieces[i];
        TimeSums sums;
        const double jump = head ? distance(*head, piece.pointsMm.first()) : 0.0;
        if (jump > kShortestJumpMm) {
            sums.jumpS = jump / profile.jumpSpeedMmPerS;
            sums.delayS = profile.jumpDelayUs * kSecondsPerUs;
        }
        sums += galvoPiece(piece, paces.of(piece.pen), profile, now + sums.totalS(),
                           &times.vertexS[static_cast<size_t>(times.firstVertex[i])]);
        now += sums.totalS();
        addSums(piece, sums, &times);
        head = piece.pointsMm.last();
    }
    return times;
}

/** All moves of a gantry with their place in the plan. */
struct PlannedMoves
{
    std::vector<GantryMove> moves;
    std::vector<int> piece;     ///< of each move
    std::vector<qint64> vertex; ///< which it leads to
    std::vector<char> isJump;
    bool isAfterDot = false; ///< where the machine stood still

    void add(const QPointF &step, double speed, int pieceIndex, qint64 vertexIndex, bool jump)
    {
        const double length = std::hypot(step.x(), step.y());
        if (length == 0.0)
            return;
        moves.push_back({length, step / length, speed, isAfterDot});
        isAfterDot = false;
        piece.push_back(pieceIndex);
        vertex.push_back(vertexIndex);
        isJump.push_back(jump ? 1 : 0);
    }
};

/** Where the laser's power cannot change on the fly, the machine stands still while it does. */
void addSwitchingStops(const JobPlan &plan, PlannedMoves *planned)
{
    for (size_t i = 1; i < planned->moves.size(); ++i) {
        const int pen = plan.pieces[planned->piece[i]].pen;
        const int penBefore = plan.pieces[planned->piece[i - 1]].pen;
        planned->moves[i].startsAtRest = planned->moves[i].startsAtRest ||
                                         planned->isJump[i] != planned->isJump[i - 1] ||
                                         pen != penBefore;
    }
}

PlannedMoves plannedMoves(const JobPlan &plan, const QVector<Pen> &pens,
                          const MachineProfile &profile, const std::optional<QPointF> &headMm)
{
    PlannedMoves planned;
    PenPaces paces(pens, profile);
    std::optional<QPointF> head = headMm;
    qint64 vertex = 0;
    for (int i = 0; i < plan.pieces.size(); ++i) {
        const QPolygonF &points = plan.pieces[i].pointsMm;
        if (head && distance(*head, points.first()) > kShortestJumpMm)
            planned.add(points.first() - *head, profile.jumpSpeedMmPerS, i, vertex, true);
        const double speed = paces.of(plan.pieces[i].pen).mmPerS;
        for (int k = 1; k < points.size(); ++k)
            planned.add(points[k] - points[k - 1], speed, i, vertex + k, false);
        vertex += points.size();
        head = points.last();
        planned.isAfterDot = planned.isAfterDot || plan.pieces[i].isDot();
    }
    if (!profile.isLaserMode)
        addSwitchingStops(plan, &planned);
    return planned;
}

JobTimes gantryTimes(const JobPlan &plan, const QVector<Pen> &pens, const MachineProfile &profile,
                     const std::optional<QPointF> &headMm)
{
    JobTimes times = emptyTimes(plan);
    const PlannedMoves planned = plannedMoves(plan, pens, profile, headMm);
    const std::vector<double> seconds =
        gantrySeconds(planned.moves, profile.accelerationMmPerS2, profile.junctionDeviationMm);
    PenPaces paces(pens, profile);
    double now = 0.0;
    size_t vertex = 0;
    size_t move = 0;
    for (int i = 0; i < plan.pieces.size(); ++i) {
        TimeSums sums;
        for (; move < planned.moves.size() && planned.piece[move] == i; ++move) {
            const auto reached = static_cast<size_t>(planned.vertex[move]);
            for (; vertex < reached; ++vertex)
                times.vertexS[vertex] = now;
            now += seconds[move];
            (planned.isJump[move] != 0 ? sums.jumpS : sums.markS) += seconds[move];
        }
        if (plan.pieces[i].isDot()) {
            for (; vertex < static_cast<size_t>(times.firstVertex[i + 1]); ++vertex)
                times.vertexS[vertex] = now;
            sums.delayS = paces.of(plan.pieces[i].pen).dotS;
            now += sums.delayS;
        }
        addSums(plan.pieces[i], sums, &times);
    }
    for (; vertex < times.vertexS.size(); ++vertex)
        times.vertexS[vertex] = now;
    return times;
}

} // namespace

TimeSums &TimeSums::operator+=(const TimeSums &other)
{
    markS += other.markS;
    jumpS += other.jumpS;
    delayS += other.delayS;
    return *this;
}

JobTimes jobTimes(const JobPlan &plan, const QVector<Pen> &pens, const MachineProfile &profile,
                  const std::optional<QPointF> &headMm)
{
    if (!plan.isSound())
        return emptyTimes(plan);
    if (profile.kind == MachineKind::Galvo)
        return galvoTimes(plan, pens, profile, headMm);
    return gantryTimes(plan, pens, profile, headMm);
}

TimeSums partsTime(const JobPlan &plan, const QVector<Pen> &pens, const MachineProfile &profile,
                   const std::optional<QPointF> &headMm, int parts)
{
    TimeSums sums = jobTimes(plan, pens, profile, headMm).all;
    if (parts < 2 || plan.pieces.isEmpty() || !plan.isSound())
        return sums;
    const TimeSums next = jobTimes(plan, pens, profile, plan.pieces.last().pointsMm.last()).all;
    const double more = parts - 1;
    sums += {next.markS * more, next.jumpS * more, next.delayS * more};
    return sums;
}

HeadPlace headAt(const JobPlan &plan, const JobTimes &times, double seconds)
{
    if (times.vertexS.empty())
        return {};
    const auto later = std::upper_bound(times.vertexS.begin(), times.vertexS.end(), seconds);
    const qint64 reached = std::max<qint64>(0, later - times.vertexS.begin() - 1);
    const auto after =
        std::upper_bound(times.firstVertex.begin(), times.firstVertex.end() - 1, reached);
    HeadPlace place;
    place.piece = static_cast<int>(after - times.firstVertex.begin()) - 1;
    const QPolygonF &points = plan.pieces[place.piece].pointsMm;
    const int point = static_cast<int>(reached - times.firstVertex[place.piece]);
    place.pointMm = points[point];
    place.segment = std::max(0, std::min<int>(point, points.size() - 2));
    if (later == times.vertexS.end() || later == times.vertexS.begin())
        return place;
    const double from = times.vertexS[static_cast<size_t>(reached)];
    const double share = (seconds - from) / (*later - from);
    place.isMarking = point + 1 < points.size();
    if (!place.isMarking) {
        ++place.piece;
        place.segment = 0;
    }
    const QPointF next =
        place.isMarking ? points[point + 1] : plan.pieces[place.piece].pointsMm.first();
    place.pointMm += (next - place.pointMm) * share;
    return place;
}

} // namespace jobkit
