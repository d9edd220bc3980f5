#include <jobkit/checks/JobChecks.h>

#include <jobkit/checks/LineOverlaps_p.h>

#include <QtCore/QSet>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace jobkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(jobkit::JobChecks)
};

QString numberText(double value) { return QString::number(value, 'g', 6); }

constexpr double kFarthestMm = 1e9; // beyond it, lines are not compared
constexpr double kHairMm = 1e-6;    // what sums of lengths are off by

bool isFinite(const QPolygonF &points)
{
    return std::all_of(points.begin(), points.end(), [](const QPointF &point) {
        return std::isfinite(point.x()) && std::isfinite(point.y());
    });
}

double lengthOf(const QPolygonF &points)
{
    double length = 0.0;
    for (int i = 1; i < points.size(); ++i)
        length += std::hypot(points[i].x() - points[i - 1].x(), points[i].y() - points[i - 1].y());
    return length;
}

/** All runs of an item, its outlines first. */
QVector<QPolygonF> runsOf(const JobItem &item)
{
    QVector<QPolygonF> runs = item.outlinesMm;
    for (const JobHatch &hatch : item.hatches)
        runs += hatch.runsMm;
    return runs;
}

class Checks
{
public:
    Checks(const QVector<JobItem> &jobItems, const QVector<Pen> &penList,
           const MachineProfile &machine, const CheckLimits &checkLimits)
        : m_items(jobItems), m_pens(penList), m_profile(machine), m_limits(checkLimits),
          m_plan(planOf(jobItems, penList))
    {
        for (const JobItem &item : m_items)
            m_names.insert(item.object, item.name);
    }

    QVector<JobFinding> run()
    {
        for (const JobItem &item : m_items) {
            checkPens(item);
            checkText(item);
            checkRuns(item);
            checkHatches(item);
        }
        if (m_plan.pieces.isEmpty())
            add(FindingKind::NothingToMark, -1, {}, Texts::tr("There is nothing to mark."));
        else if (m_canCompare)
            checkOverlaps();
        std::stable_sort(m_findings.begin(), m_findings.end(),
                         [](const JobFinding &a, const JobFinding &b) { return a.kind < b.kind; });
        return m_findings;
    }

private:
    void add(FindingKind kind, int object, const QPointF &atMm, const QString &text, int other = -1)
    {
        if (++m_counts[kind] <= m_limits.mostFindings)
            m_findings.append({kind, object, other, atMm, text});
    }

    QString nameOf(int object) const
    {
        const QString name = m_names.value(object);
        return name.isEmpty() ? Texts::tr("object %1").arg(object + 1)
                              : QStringLiteral("\"%1\"").arg(name);
    }

    static QPointF placeOf(const JobItem &item)
    {
        const QVector<QPolygonF> runs = runsOf(item);
        for (const QPolygonF &run : runs) {
            if (!run.isEmpty())
                return run.first();
        }
        return {};
    }

    void checkPens(const JobItem &item)
    {
        QSet<int> used;
        if (!item.outlinesMm.isEmpty())
            used.insert(item.pen);
        for (const JobHatch &hatch : item.hatches)
            used.insert(hatch.pen);
        QList<int> numbers = used.values();
        std::sort(numbers.begin(), numbers.end());
        for (const int number : qAsConst(numbers)) {
            const Pen pen = penOf(m_pens, number, m_profile);
            if (findPen(m_pens, number) == nullptr)
                tellWithoutValues(item, pen);
            else if (!pen.isOn)
                add(FindingKind::PenOff, item.object, placeOf(item),
                    Texts::tr("Pen %1 of %2 is off: what it draws is left out.")
                        .arg(QString::number(number), nameOf(item.object)));
            else if (pen.speedMmPerS > m_profile.mostSpeedMmPerS)
                add(FindingKind::TooFast, item.object, placeOf(item),
                    Texts::tr("Pen %1 of %2 asks for %3 mm/s, the machine goes no faster than %4.")
                        .arg(QString::number(number), nameOf(item.object),
                             numberText(pen.speedMmPerS), numberText(m_profile.mostSpeedMmPerS)));
        }
    }

    void tellWithoutValues(const JobItem &item, const Pen &pen)
    {
        if (m_withoutValues.contains(pen.number))
            return;
        m_withoutValues.insert(pen.number);
        add(FindingKind::PenWithoutValues, item.object, placeOf(item),
            Texts::tr("Pen %1 of %2 was given no values: it marks with %3 mm/s and %4 % power.")
                .arg(QString::number(pen.number), nameOf(item.object), numberText(pen.speedMmPerS),
                     numberText(pen.powerPercent)));
    }

    void checkText(const JobItem &item)
    {
        if (item.isSerialUsedUp)
            add(FindingKind::SerialUsedUp, item.object, placeOf(item),
                Texts::tr("The serial number of %1 is used up.").arg(nameOf(item.object)));
        if (!item.missingCharacters.isEmpty())
            add(FindingKind::CharactersMissing, item.object, placeOf(item),
                Texts::tr("The font of %1 lacks these characters: %2")
                    .arg(nameOf(item.object), item.missingCharacters));
    }

    void checkRuns(const JobItem &item)
    {
        // To the very edges, but for what sums of lengths are off by.
        const QRectF field = m_profile.fieldMm().adjusted(-kHairMm, -kHairMm, kHairMm, kHairMm);
        std::set<FindingKind> told;
        const auto once = [&](FindingKind kind, const QPointF &atMm, const QString &text) {
            if (told.count(kind) == 0)
                add(kind, item.object, atMm, text.arg(nameOf(item.object)));
            told.insert(kind);
        };
        const QVector<QPolygonF> runs = runsOf(item);
        for (const QPolygonF &run : runs) {
            if (!isFinite(run)) {
                m_canCompare = false;
                once(FindingKind::NotANumber, {},
                     Texts::tr("%1 has a coordinate that is no number."));
                continue;
            }
            if (!item.hasDots && !run.isEmpty() && lengthOf(run) == 0.0)
                once(FindingKind::ZeroLength, run.first(),
                     Texts::tr("%1 has a piece without a length."));
            for (const QPointF &point : run) {
                const bool isInside = point.x() >= field.left() && point.x() <= field.right() &&
                                      point.y() >= field.top() && point.y() <= field.bottom();
                const bool isFar =
                    std::abs(point.x()) > kFarthestMm || std::abs(point.y()) > kFarthestMm;
                m_canCompare = m_canCompare && !isFar;
                if (!isInside)
                    once(FindingKind::OutsideField, point,
                         Texts::tr("%1 reaches beyond the field."));
            }
        }
    }

    void checkHatches(const JobItem &item)
    {
        for (const JobHatch &hatch : item.hatches) {
            QPointF at;
            const double spacing = leastSpacing(hatch, &at);
            if (spacing >= m_limits.leastHatchMm)
                continue;
            add(FindingKind::HatchTooClose, item.object, at,
                Texts::tr("Hatch lines of %1 are %2 mm apart, less than %3.")
                    .arg(nameOf(item.object), numberText(spacing),
                         numberText(m_limits.leastHatchMm)));
            return;
        }
    }

    /** The direction of the longest piece, which in a zigzag is one of the hatch's lines. */
    static QPointF directionOf(const JobHatch &hatch)
    {
        double longest = 0.0;
        QPointF direction;
        for (const QPolygonF &run : hatch.runsMm) {
            for (int i = 1; i < run.size(); ++i) {
                const QPointF step = run[i] - run[i - 1];
                const double length = std::hypot(step.x(), step.y());
                if (length <= longest)
                    continue;
                longest = length;
                direction = step / length;
            }
        }
        return direction;
    }

    /** The least distance of the lines in that direction, each from the one before it. */
    static double leastSpacing(const JobHatch &hatch, QPointF *at)
    {
        const QPointF direction = directionOf(hatch);
        const auto across = [&direction](const QPointF &step) {
            return step.x() * direction.y() - step.y() * direction.x();
        };
        double least = 1e300;
        double before = std::nan("");
        for (const QPolygonF &run : hatch.runsMm) {
            for (int i = 1; i < run.size(); ++i) {
                const QPointF step = run[i] - run[i - 1];
                const double length = std::hypot(step.x(), step.y());
                if (length == 0.0 || std::abs(across(step)) > 1e-6 * length)
                    continue;
                const double apart = std::abs(across(run[i]) - before); // not for the first
                if (apart > 1e-6 && apart < least) {
                    least = apart;
                    *at = run[i];
                }
                before = across(run[i]);
            }
        }
        return least;
    }

    QString overlapText(bool isWhole, int first, int second) const
    {
        if (first == second)
            return (isWhole ? Texts::tr("%1 has a line that lies twice.")
                            : Texts::tr("%1 has lines that cover each other in part."))
                .arg(nameOf(first));
        return (isWhole ? Texts::tr("%1 has a line that lies twice, also in %2.")
                        : Texts::tr("%1 has a line that covers one of %2 in part."))
            .arg(nameOf(first), nameOf(second));
    }

    void checkOverlaps()
    {
        QVector<PlanPiece> outlines;
        std::copy_if(m_plan.pieces.begin(), m_plan.pieces.end(), std::back_inserter(outlines),
                     [](const PlanPiece &piece) { return piece.hatch == 0; });
        const QVector<LineOverlap> overlaps = lineOverlaps(outlines);
        for (const LineOverlap &overlap : overlaps) {
            const int first = outlines[overlap.first].object;
            const int second = outlines[overlap.second].object;
            add(overlap.isWhole ? FindingKind::DoubledLine : FindingKind::CoveredLine, first,
                overlap.atMm, overlapText(overlap.isWhole, first, second), second);
        }
    }

    const QVector<JobItem> &m_items;
    const QVector<Pen> &m_pens;
    const MachineProfile &m_profile;
    const CheckLimits &m_limits;
    JobPlan m_plan;
    QHash<int, QString> m_names;
    QVector<JobFinding> m_findings;
    std::map<FindingKind, int> m_counts;
    QSet<int> m_withoutValues; ///< numbers of pens that were told
    bool m_canCompare = true;
};

} // namespace

QVector<JobFinding> checkJob(const QVector<JobItem> &items, const QVector<Pen> &pens,
                             const MachineProfile &profile, const CheckLimits &limits)
{
    return Checks(items, pens, profile, limits).run();
}

} // namespace jobkit
