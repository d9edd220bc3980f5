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

void repeatRange(const QVector<PlanPiece> &pieces, int from, int to, QVector<PlanPiece> *result)
{
    int most = 0;
    for (int i = from; i < to; ++i)
        most = std::max(most, pieces[i].passes);
    for (int pass = 1; pass <= most; ++pass) {
        for (int i = from; i < to; ++i) {
            if (pieces[i].passes < pass)
                continue;
            result->append(pieces[i]);
            result->last().pass = pass;
            result->last().passes = 1;
        }
    }
}

} // namespace

bool PlanPiece::isClosed() const
{
    // Not by ==, which takes points for equal that are not.
    return pointsMm.size() > 2 && pointsMm.first().x() == pointsMm.last().x() &&
           pointsMm.first().y() == pointsMm.last().y();
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
    const Pen *pen = findPen(pens, number);
    return pen != nullptr ? *pen : defaultPen(number);
}

JobPlan planOf(const QVector<JobItem> &items, const QVector<Pen> &pens)
{
    JobPlan plan;
    for (const JobItem &item : items) {
        PlanPiece sample;
        sample.object = item.object;
        const Pen pen = penOf(pens, item.pen);
        sample.pen = item.pen;
        sample.passes = pen.passes;
        if (pen.isOn)
            addPieces(item.outlinesMm, sample, &plan);
        for (int i = 0; i < item.hatches.size(); ++i) {
            const JobHatch &hatch = item.hatches[i];
            const Pen hatchPen = penOf(pens, hatch.pen);
            sample.pen = hatch.pen;
            sample.hatch = i + 1;
            sample.passes = hatchPen.passes * std::max(1, hatch.passes);
            sample.isOneWay = hatch.isOneWay;
            if (hatchPen.isOn)
                addPieces(hatch.runsMm, sample, &plan);
        }
    }
    return plan;
}

void layOutPasses(JobPlan *plan, PassOrder order)
{
    const QVector<PlanPiece> once = plan->pieces;
    plan->pieces.clear();
    if (order == PassOrder::WholeJob) {
        repeatRange(once, 0, once.size(), &plan->pieces);
        return;
    }
    for (int from = 0; from < once.size();) {
        int to = from + 1;
        while (to < once.size() && belongTogether(once[from], once[to]))
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
