#include <jobkit/plan/JobPlan.h>

#include <algorithm>
#include <cmath>

namespace jobkit {

namespace {

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(b.x() - a.x(), b.y() - a.y());
}

void addPieces(const QVector<QPolygonF> &runs, const PlanPiece &sample, JobPlan *plan)
{
    for (const QPolygonF &run : runs) {
        if (run.isEmpty())
            continue;
        plan->pieces.append(sample);
        plan->pieces.last().pointsMm = run;
    }
}

/** Pieces that are repeated together where each object has all its passes before the next. */
bool belongTogether(const PlanPiece &a, const PlanPiece &b)
{
    return a.object == b.object && a.pen == b.pen && a.hatch == b.hatch && a.passes == b.passes;
}

/** Of a hatch that is turned, the passes of the turns before come first. */
int lastPass(const PlanPiece &piece) { return piece.pass * piece.passes; }

void repeatRange(const QVector<PlanPiece> &pieces, int from, int to, QVector<PlanPiece> *result)
{
    int most = 0;
    for (int i = from; i < to; ++i)
        most = std::max(most, lastPass(pieces[i]));
    for (int pass = 1; pass <= most; ++pass) {
        for (int i = from; i < to; ++i) {
            if (pass <= (pieces[i].pass - 1) * pieces[i].passes || pass > lastPass(pieces[i]))
                continue;
            result->append(pieces[i]);
            result->last().pass = pass;
            result->last().passes = 1;
        }
    }
}

bool isSame(const QPointF &a, const QPointF &b) { return a.x() == b.x() && a.y() == b.y(); }

bool areSame(const QVector<QPolygonF> &a, const QVector<QPolygonF> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const QPolygonF &p, const QPolygonF &q) {
                          return std::equal(p.begin(), p.end(), q.begin(), q.end(), isSame);
                      });
}

/** The hatches of an item that go before its outlines, or the others. */
void addHatches(const JobItem &item, bool areBefore, const QVector<Pen> &pens, JobPlan *plan)
{
    for (int i = 0; i < item.hatches.size(); ++i) {
        const JobHatch &hatch = item.hatches[i];
        const Pen pen = penOf(pens, hatch.pen);
        if (!pen.isOn || areBefore != (hatch.moment == hostkit::HatchMoment::BeforeOutline))
            continue;
        PlanPiece sample;
        sample.object = item.object;
        sample.pen = hatch.pen;
        sample.hatch = hatch.number > 0 ? hatch.number : i + 1;
        sample.passes = pen.passes * std::max(1, hatch.passes);
        sample.pass = std::max(1, hatch.turn);
        sample.isOneWay = hatch.isOneWay;
        sample.moment = hatch.moment;
        addPieces(hatch.runsMm, sample, plan);
    }
}

} // namespace

bool operator==(const JobHatch &a, const JobHatch &b)
{
    return a.number == b.number && a.pen == b.pen && a.passes == b.passes && a.turn == b.turn &&
           a.isOneWay == b.isOneWay && a.moment == b.moment && areSame(a.runsMm, b.runsMm);
}

bool operator==(const JobItem &a, const JobItem &b)
{
    return a.object == b.object && a.name == b.name && a.pen == b.pen && a.hasDots == b.hasDots &&
           areSame(a.outlinesMm, b.outlinesMm) && a.hatches == b.hatches &&
           a.isSerialUsedUp == b.isSerialUsedUp && a.missingCharacters == b.missingCharacters;
}

bool PlanPiece::isDot() const
{
    return std::all_of(pointsMm.begin(), pointsMm.end(),
                       [this](const QPointF &point) { return isSame(point, pointsMm.first()); });
}

bool PlanPiece::isClosed() const
{
    // Not by ==, which takes points for equal that are not.
    return pointsMm.size() > 2 && pointsMm.first().x() == pointsMm.last().x() &&
           pointsMm.first().y() == pointsMm.last().y();
}

bool JobPlan::isSound() const
{
    const auto isFinite = [](const QPointF &point) {
        return std::isfinite(point.x()) && std::isfinite(point.y());
    };
    return std::all_of(pieces.begin(), pieces.end(), [&isFinite](const PlanPiece &piece) {
        return !piece.pointsMm.isEmpty() &&
               std::all_of(piece.pointsMm.begin(), piece.pointsMm.end(), isFinite);
    });
}

double JobPlan::markLengthMm() const
{
    double length = 0.0;
    for (const PlanPiece &piece : pieces) {
        for (int i = 1; i < piece.pointsMm.size(); ++i)
            length += distance(piece.pointsMm[i - 1], piece.pointsMm[i]);
    }
    return length;
}

double JobPlan::jumpLengthMm() const
{
    double length = 0.0;
    for (int i = 1; i < pieces.size(); ++i)
        length += distance(pieces[i - 1].pointsMm.last(), pieces[i].pointsMm.first());
    return length;
}

qint64 JobPlan::segmentCount() const
{
    qint64 count = 0;
    for (const PlanPiece &piece : pieces)
        count += piece.pointsMm.size() - 1;
    return count;
}

QRectF JobPlan::boundsMm() const
{
    if (pieces.isEmpty())
        return {};
    QPointF low = pieces.first().pointsMm.first();
    QPointF high = low;
    for (const PlanPiece &piece : pieces) {
        for (const QPointF &point : piece.pointsMm) {
            low = {std::min(low.x(), point.x()), std::min(low.y(), point.y())};
            high = {std::max(high.x(), point.x()), std::max(high.y(), point.y())};
        }
    }
    return {low, high};
}

Pen penOf(const QVector<Pen> &pens, int number)
{
    if (const Pen *pen = findPen(pens, number))
        return *pen;
    static const QVector<Pen> screenPens = defaultPens();
    const Pen *pen = findPen(screenPens, number);
    return pen != nullptr ? *pen : defaultPen(number);
}

Pen penOf(const QVector<Pen> &pens, int number, const MachineProfile &machine)
{
    Pen pen = penOf(pens, number);
    if (findPen(pens, number) == nullptr)
        pen.speedMmPerS = std::min(pen.speedMmPerS, machine.mostSpeedMmPerS);
    return pen;
}

JobPlan planOf(const QVector<JobItem> &items, const QVector<Pen> &pens)
{
    JobPlan plan;
    for (const JobItem &item : items) {
        PlanPiece sample;
        sample.object = item.object;
        addHatches(item, true, pens, &plan);
        const Pen pen = penOf(pens, item.pen);
        sample.pen = item.pen;
        sample.passes = pen.passes;
        if (pen.isOn)
            addPieces(item.outlinesMm, sample, &plan);
        addHatches(item, false, pens, &plan);
    }
    return plan;
}

void layOutPasses(JobPlan *plan, PassOrder order)
{
    const QVector<PlanPiece> once = plan->pieces;
    plan->pieces.clear();
    // What goes before the outlines does so with all its passes.
    const auto areTogether = [order](const PlanPiece &a, const PlanPiece &b) {
        return order == PassOrder::WholeJob ? a.moment == b.moment : belongTogether(a, b);
    };
    for (int from = 0; from < once.size();) {
        int to = from + 1;
        while (to < once.size() && areTogether(once[from], once[to]))
            ++to;
        repeatRange(once, from, to, &plan->pieces);
        from = to;
    }
}

QVector<QPolygonF> hatchRuns(const QVector<QLineF> &lines)
{
    QVector<QPolygonF> runs;
    for (const QLineF &line : lines) {
        const bool goesOn = !runs.isEmpty() && runs.last().last().x() == line.x1() &&
                            runs.last().last().y() == line.y1();
        if (!goesOn)
            runs.append(QPolygonF({line.p1()}));
        runs.last().append(line.p2());
    }
    return runs;
}

} // namespace jobkit
