#include <jobkit/plan/JobOrder.h>

#include <jobkit/plan/FewStops_p.h>
#include <jobkit/plan/PointIndex_p.h>
#include <jobkit/plan/Tour_p.h>

#include <QtCore/QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <tuple>

namespace jobkit {

namespace {

constexpr int kMostStarts = 64; // of a closed piece, while exchanging

/** Enough for the best order of a few pieces, and in proportion for many. */
qint64 defaultSteps(qint64 pieces) { return std::max<qint64>(200, 4 * pieces); }

using Pieces = QVector<PlanPiece>;

/** Asks now and then whether there is time left. */
class Patience
{
public:
    Patience(const OrderOptions &given, qint64 all)
        : m_options(given), m_steps(std::max<qint64>(1, all))
    {
        m_clock.start();
    }

    bool mayGoOn()
    {
        if (++m_done % 64 == 0 && !m_isOver) {
            const double share = std::min(1.0, double(m_done) / double(m_steps));
            m_isOver = m_clock.elapsed() > m_options.budgetMs ||
                       (m_options.progress && !m_options.progress(share));
        }
        return !m_isOver;
    }

    bool isOut() const { return m_isOver; }

private:
    const OrderOptions &m_options;
    QElapsedTimer m_clock;
    qint64 m_steps;
    qint64 m_done = 0;
    bool m_isOver = false;
};

/** Jumps with the way from the head, where it stands somewhere. */
double jumps(const Pieces &pieces, const std::optional<QPointF> &head)
{
    std::optional<QPointF> from = head;
    double length = 0.0;
    for (const PlanPiece &piece : pieces) {
        const QPointF to = piece.pointsMm.first();
        if (from)
            length += std::hypot(to.x() - from->x(), to.y() - from->y());
        from = piece.pointsMm.last();
    }
    return length;
}

void beginAt(PlanPiece *piece, int point)
{
    if (point == 0)
        return;
    QPolygonF &points = piece->pointsMm;
    points.removeLast();
    std::rotate(points.begin(), points.begin() + point, points.end());
    points.append(points.first());
}

void reverse(PlanPiece *piece)
{
    std::reverse(piece->pointsMm.begin(), piece->pointsMm.end());
    piece->isReversed = !piece->isReversed;
}

/** How many closed outlines each outline lies in, by its first point; 0 for hatches. */
std::vector<int> nestingDepths(const Pieces &pieces)
{
    std::vector<int> depths(static_cast<size_t>(pieces.size()), 0);
    std::vector<QRectF> boxes;
    for (const PlanPiece &piece : pieces)
        boxes.push_back(piece.pointsMm.boundingRect());
    std::vector<int> byLeft;
    for (int i = 0; i < pieces.size(); ++i) {
        if (pieces[i].hatch == 0)
            byLeft.push_back(i);
    }
    std::stable_sort(byLeft.begin(), byLeft.end(),
                     [&](int a, int b) { return boxes[a].left() < boxes[b].left(); });
    std::vector<int> open;
    for (const int index : byLeft) {
        const QRectF &box = boxes[index];
        const auto isPast = [&](int other) { return boxes[other].right() < box.left(); };
        open.erase(std::remove_if(open.begin(), open.end(), isPast), open.end());
        for (const int outer : open) {
            const QRectF &around = boxes[outer];
            const bool mayHold = around.right() >= box.right() && around.top() <= box.top() &&
                                 around.bottom() >= box.bottom() && around != box;
            if (mayHold && pieces[outer].pointsMm.containsPoint(pieces[index].pointsMm.first(),
                                                                Qt::OddEvenFill))
                ++depths[index];
        }
        if (pieces[index].isClosed())
            open.push_back(index);
    }
    return depths;
}

/** Hatches that are to be marked before or after the outlines are so, whatever pen they have. */
int momentOf(const PlanPiece &piece)
{
    if (piece.hatch == 0 || piece.moment == hostkit::HatchMoment::Any)
        return 0;
    return piece.moment == hostkit::HatchMoment::BeforeOutline ? -1 : 1;
}

/** The stages that the options ask for, each with its pieces in the order drawn. */
std::vector<Pieces> stagesOf(const Pieces &pieces, const OrderOptions &options)
{
    const std::vector<int> depths = options.isInnerFirst
                                        ? nestingDepths(pieces)
                                        : std::vector<int>(static_cast<size_t>(pieces.size()), 0);
    const auto stageOf = [&](int i) {
        // As drawn, each shape keeps its hatches about it.
        const int moment = options.kind == OrderKind::AsDrawn ? 0 : momentOf(pieces[i]);
        int hatch = 0;
        if (options.hatchPlace != HatchPlace::Any)
            hatch = (pieces[i].hatch > 0) == (options.hatchPlace == HatchPlace::AfterOutlines);
        return std::make_tuple(moment, options.isPenByPen ? pieces[i].pen : 0, hatch, -depths[i]);
    };
    std::vector<int> order(static_cast<size_t>(pieces.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return stageOf(a) < stageOf(b); });
    std::vector<Pieces> stages;
    for (size_t i = 0; i < order.size(); ++i) {
        if (i == 0 || stageOf(order[i - 1]) < stageOf(order[i]))
            stages.emplace_back();
        stages.back().append(pieces[order[i]]);
    }
    return stages;
}

std::vector<PointIndex::Entry> entriesOf(const Pieces &pieces)
{
    std::vector<PointIndex::Entry> entries;
    for (int i = 0; i < pieces.size(); ++i) {
        const QPolygonF &points = pieces[i].pointsMm;
        entries.push_back({points.first(), i, 0});
        if (pieces[i].isOneWay)
            continue;
        const int last = points.size() - 1;
        const bool isClosed = pieces[i].isClosed();
        for (int k = isClosed ? 1 : last; k < (isClosed ? last : last + 1) && k > 0; ++k)
            entries.push_back({points[k], i, k});
    }
    return entries;
}

/** Always the nearest end next. */
Pieces nearestFirst(const Pieces &pieces, const std::optional<QPointF> &head)
{
    PointIndex index(entriesOf(pieces));
    Pieces result;
    result.reserve(pieces.size());
    QPointF at = head ? *head : pieces.first().pointsMm.first();
    while (const PointIndex::Entry *found = index.nearest(at)) {
        PlanPiece piece = pieces[found->owner];
        if (piece.isClosed())
            beginAt(&piece, found->tag);
        else if (found->tag > 0)
            reverse(&piece);
        at = piece.pointsMm.last();
        index.remove(found->owner);
        result.append(piece);
    }
    return result;
}

TourStop stopOf(const PlanPiece &piece)
{
    TourStop stop;
    stop.ends[0] = piece.pointsMm.first();
    stop.ends[1] = piece.pointsMm.last();
    stop.isOneWay = piece.isOneWay;
    if (!piece.isClosed() || piece.isOneWay)
        return stop;
    const int count = piece.pointsMm.size() - 1;
    const int step = (count + kMostStarts - 1) / kMostStarts;
    for (int i = 0; i < count; i += step)
        stop.starts.push_back(piece.pointsMm[i]);
    return stop;
}

std::vector<Tour::Visit> bestVisits(std::vector<TourStop> stops, const OrderOptions &options,
                                    const QPointF *head, Patience *patience)
{
    if (stops.size() <= kFewStops)
        return shortestOfAll(stops, head);
    const auto count = static_cast<qint64>(stops.size());
    Tour tour(std::move(stops), head);
    tour.improve([patience] { return patience->mayGoOn(); });
    std::mt19937 random(options.seed);
    const qint64 steps = options.mostSteps < 0 ? defaultSteps(count) : options.mostSteps;
    for (qint64 step = 0; step < steps && patience->mayGoOn(); ++step)
        tour.kick(&random);
    return tour.visits();
}

Pieces exchanged(const Pieces &pieces, const OrderOptions &options,
                 const std::optional<QPointF> &head, Patience *patience)
{
    std::vector<TourStop> stops;
    stops.reserve(static_cast<size_t>(pieces.size()));
    for (const PlanPiece &piece : pieces)
        stops.push_back(stopOf(piece));
    const std::vector<Tour::Visit> visits =
        bestVisits(std::move(stops), options, head ? &*head : nullptr, patience);
    Pieces result;
    result.reserve(pieces.size());
    for (const Tour::Visit &visit : visits) {
        PlanPiece piece = pieces[visit.stop];
        if (piece.isClosed() && !piece.isOneWay)
            beginAt(&piece, piece.pointsMm.indexOf(visit.start));
        else if (visit.isReversed)
            reverse(&piece);
        result.append(piece);
    }
    return result;
}

/** Closed pieces begin where the ways to and from their neighbours are shortest. */
void settleStarts(Pieces *pieces, const std::optional<QPointF> &head)
{
    for (int i = 0; i < pieces->size(); ++i) {
        PlanPiece &piece = (*pieces)[i];
        if (!piece.isClosed() || piece.isOneWay)
            continue;
        const auto length = [&](const QPointF &at) {
            double sum = 0.0;
            const std::optional<QPointF> from =
                i > 0 ? std::optional<QPointF>((*pieces)[i - 1].pointsMm.last()) : head;
            if (from)
                sum += std::hypot(at.x() - from->x(), at.y() - from->y());
            if (i + 1 < pieces->size()) {
                const QPointF to = (*pieces)[i + 1].pointsMm.first();
                sum += std::hypot(at.x() - to.x(), at.y() - to.y());
            }
            return sum;
        };
        int best = 0;
        double least = length(piece.pointsMm.first());
        for (int k = 1; k + 1 < piece.pointsMm.size(); ++k) {
            const double sum = length(piece.pointsMm[k]);
            if (sum < least) {
                least = sum;
                best = k;
            }
        }
        beginAt(&piece, best);
    }
}

Pieces orderedStage(const Pieces &drawn, const OrderOptions &options,
                    const std::optional<QPointF> &head, Patience *patience)
{
    if (options.kind == OrderKind::AsDrawn)
        return drawn;
    Pieces best = nearestFirst(drawn, head);
    if (jumps(drawn, head) < jumps(best, head))
        best = drawn;
    if (options.kind == OrderKind::Nearest)
        return best;
    Pieces better = exchanged(best, options, head, patience);
    settleStarts(&better, head);
    return jumps(better, head) < jumps(best, head) ? better : best;
}

} // namespace

OrderResult orderPlan(JobPlan *plan, const OrderOptions &options)
{
    if (!plan->isSound())
        return {};
    const std::vector<Pieces> stages = stagesOf(plan->pieces, options);
    Pieces start;
    for (const Pieces &stage : stages)
        start += stage;
    Patience patience(options, 6 * plan->pieces.size());
    Pieces ordered;
    std::optional<QPointF> head = options.headMm;
    for (const Pieces &stage : stages) {
        ordered += orderedStage(stage, options, head, &patience);
        head = ordered.last().pointsMm.last();
    }
    OrderResult result;
    result.isCutShort = patience.isOut();
    result.jumpsBeforeMm = jumps(start, options.headMm);
    result.jumpsAfterMm = jumps(ordered, options.headMm);
    if (result.jumpsAfterMm > result.jumpsBeforeMm) {
        // A stage ended farther from the next than it did as drawn.
        ordered = start;
        result.jumpsAfterMm = result.jumpsBeforeMm;
    }
    plan->pieces = ordered;
    return result;
}

} // namespace jobkit
