#include <vectorkit/clean/DrawingCleaning.h>

#include <vectorkit/clean/OutlineOps.h>
#include <vectorkit/clean/PathDoubles.h>
#include <vectorkit/clean/PathFitting.h>
#include <vectorkit/clean/PathJoining.h>
#include <vectorkit/clean/PathOrder.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <vector>

namespace vectorkit {

namespace {

/** What drawn alike has in common. */
using Style = std::tuple<int, QRgb, bool, double>;

Style styleOf(const VectorShape &shape)
{
    return {shape.pen, shape.color.rgba(), shape.color.isValid(), shape.strokeWidthMm};
}

/** Shapes of a layer that are drawn alike: lines by themselves, and areas. */
struct Group
{
    VectorShape style; ///< without paths
    QVector<VectorPath> lines;
    QVector<VectorShape> areas;
};

QVector<Group> groupsOf(const VectorLayer &layer)
{
    QVector<Group> groups;
    std::map<Style, int> known;
    for (const VectorShape &shape : layer.shapes) {
        const auto [found, isNew] = known.insert({styleOf(shape), groups.size()});
        const int index = found->second;
        if (isNew) {
            Group group;
            group.style = shape;
            group.style.paths.clear();
            group.style.id.clear();
            group.style.isFilled = false;
            group.style.isStroked = true;
            groups.append(group);
        }
        if (shape.isFilled)
            groups[index].areas.append(shape);
        else
            groups[index].lines += shape.paths;
    }
    return groups;
}

qint64 piecesOf(const QVector<VectorPath> &paths)
{
    qint64 pieces = 0;
    for (const VectorPath &path : paths)
        pieces += path.pieceCount();
    return pieces;
}

qint64 piecesOf(const Group &group)
{
    qint64 pieces = piecesOf(group.lines);
    for (const VectorShape &area : group.areas)
        pieces += piecesOf(area.paths);
    return pieces;
}

qint64 piecesOf(const VectorDrawing &drawing)
{
    qint64 pieces = 0;
    for (const VectorLayer &layer : drawing.layers) {
        for (const VectorShape &shape : layer.shapes)
            pieces += piecesOf(shape.paths);
    }
    return pieces;
}

/** Told how much of one step is done, 0 to 1; false cancels. */
using Part = std::function<bool(double)>;

/** What each step costs, as measured; a step that is off costs nothing. */
struct StepCosts
{
    double zeroLength;
    double doubles;
    double joining;
    double simplifying;
    double fitting;
    double welding;
    double order;

    explicit StepCosts(const CleanOptions &options)
        : zeroLength(options.dropZeroLength ? 1.0 : 0.0), doubles(options.dropDoubles ? 8.0 : 0.0),
          joining(options.joinMm >= 0.0 ? 6.0 : 0.0),
          simplifying(options.simplifyMm > 0.0 ? 1.0 : 0.0),
          fitting(options.fitArcsMm > 0.0 ? 2.0 : 0.0), welding(options.weld ? 4.0 : 0.0),
          order(options.order ? 8.0 : 0.0)
    {
    }

    double inGroup() const
    {
        return zeroLength + doubles + joining + simplifying + fitting + welding;
    }
    double all() const { return inGroup() + order; }
};

/** How far the whole is, told step by step; once cancelled it stays so. */
class Course
{
public:
    Course(const std::function<bool(double)> &progress, double total)
        : m_progress(progress), m_total(total > 0.0 ? total : 1.0)
    {
    }

    /** Does a step of so much work; false when cancelled. */
    template <class Work>
    bool step(double size, Work work)
    {
        const auto tell = [&](double part) {
            if (!m_isCancelled && m_progress)
                m_isCancelled =
                    !m_progress(std::min(1.0, (m_done + size * std::min(part, 1.0)) / m_total));
            return !m_isCancelled;
        };
        if (size > 0.0 && tell(0.0))
            work(Part(tell));
        m_done += size;
        return !m_isCancelled;
    }

private:
    const std::function<bool(double)> &m_progress; ///< borrowed from the caller
    double m_total;
    double m_done = 0.0;
    bool m_isCancelled = false;
};

/** Changes all paths of a group one by one, unless it is cancelled. */
template <class Change>
void changePaths(Group *group, const Part &part, Change change)
{
    constexpr qint64 kEvery = 4096;
    const double total = std::max(1.0, double(piecesOf(*group)));
    qint64 done = 0;
    qint64 told = 0;
    const auto changeAll = [&](QVector<VectorPath> *paths) {
        for (VectorPath &path : *paths) {
            done += path.pieceCount();
            if (done - told >= kEvery) {
                told = done;
                if (!part(double(done) / total))
                    return false;
            }
            path = change(path);
        }
        return true;
    };
    bool goesOn = changeAll(&group->lines);
    for (VectorShape &area : group->areas)
        goesOn = goesOn && changeAll(&area.paths);
}

/** An outline by its place among others, with its box. */
struct Boxed
{
    int index;
    QRectF box;
};

/**
 * Splits a range where a straight cut across or down meets no box, so that what lies on both sides
 * of it cannot touch; calls `cluster(begin, end)` for what cannot be cut.
 */
template <class Cluster>
void forClusters(std::vector<Boxed>::iterator begin, std::vector<Boxed>::iterator end,
                 Cluster cluster)
{
    constexpr double kApartMm = 1e-3;
    struct Range
    {
        std::vector<Boxed>::iterator begin;
        std::vector<Boxed>::iterator end;
        bool cutsDown;
        bool isWholeAcross; ///< no cut the other way
        int depth;
    };
    constexpr int kMostDepth = 64; // what takes more cuts is one lot
    std::vector<Range> open{{begin, end, true, false, 0}};
    while (!open.empty()) {
        const Range range = open.back();
        open.pop_back();
        const auto low = [&](const Boxed &one) {
            return range.cutsDown ? one.box.left() : one.box.top();
        };
        const auto high = [&](const Boxed &one) {
            return range.cutsDown ? one.box.right() : one.box.bottom();
        };
        std::sort(range.begin, range.end,
                  [&](const Boxed &a, const Boxed &b) { return low(a) < low(b); });
        std::vector<Range> parts;
        auto first = range.begin;
        double reached = high(*first);
        for (auto at = range.begin; at != range.end; ++at) {
            if (low(*at) > reached + kApartMm) {
                parts.push_back({first, at, !range.cutsDown, false, range.depth + 1});
                first = at;
            }
            reached = std::max(reached, high(*at));
        }
        if (!parts.empty() && range.depth < kMostDepth) {
            parts.push_back({first, range.end, !range.cutsDown, false, range.depth + 1});
            open.insert(open.end(), parts.rbegin(), parts.rend());
        } else if (parts.empty() && !range.isWholeAcross && range.end - range.begin > 1) {
            open.push_back({range.begin, range.end, !range.cutsDown, true, range.depth + 1});
        } else {
            cluster(range.begin, range.end);
        }
    }
}

/**
 * Closed outlines welded, in lots that lie apart from each other.
 *
 * Limit: outlines that all reach over each other are one lot, which is told nothing on its way.
 */
QVector<VectorPath> weldedInLots(const QVector<VectorPath> &outlines, Qt::FillRule rule,
                                 double toleranceMm, const Part &part)
{
    constexpr qint64 kLot = 5000; // smaller lots would take longer
    const double total = double(piecesOf(outlines));
    if (total <= kLot)
        return weldedOutlines(outlines, rule, toleranceMm);
    std::vector<Boxed> boxes;
    boxes.reserve(static_cast<std::size_t>(outlines.size()));
    for (int i = 0; i < outlines.size(); ++i)
        boxes.push_back({i, outlines[i].boundsMm()});
    QVector<VectorPath> welded;
    QVector<VectorPath> lot;
    qint64 pieces = 0;
    qint64 done = 0;
    bool goesOn = true;
    const auto weldLot = [&] {
        welded += weldedOutlines(lot, rule, toleranceMm);
        done += pieces;
        pieces = 0;
        lot.clear();
        goesOn = part(double(done) / total);
    };
    forClusters(boxes.begin(), boxes.end(), [&](auto begin, auto end) {
        if (!goesOn)
            return;
        for (auto at = begin; at != end; ++at) {
            lot.append(outlines[at->index]);
            pieces += lot.last().pieceCount();
        }
        if (pieces >= kLot)
            weldLot();
    });
    if (goesOn && !lot.isEmpty())
        weldLot();
    return welded;
}

void weld(Group *group, const CleanOptions &options, const Part &part)
{
    QVector<VectorPath> open;
    QVector<VectorPath> closed;
    for (const VectorPath &path : qAsConst(group->lines))
        (path.isClosed() ? closed : open).append(path);
    group->lines = open;
    if (!closed.isEmpty())
        group->lines += weldedInLots(closed, options.weldRule, options.toleranceMm, part);
    if (group->areas.isEmpty())
        return;
    QVector<VectorPath> outlines; // each under its own rule, and then all as one
    for (const VectorShape &area : qAsConst(group->areas))
        outlines += weldedOutlines(area.paths, area.fillRule, options.toleranceMm);
    VectorShape area = group->areas.first();
    area.isStroked = std::all_of(group->areas.begin(), group->areas.end(),
                                 [](const VectorShape &shape) { return shape.isStroked; });
    area.paths = weldedInLots(outlines, Qt::WindingFill, options.toleranceMm, part);
    group->areas.clear();
    if (!area.paths.isEmpty())
        group->areas.append(area);
}

void count(const VectorDrawing &drawing, qint64 *paths, qint64 *pieces, double *jumps)
{
    for (const VectorLayer &layer : drawing.layers) {
        QVector<VectorPath> all;
        for (const VectorShape &shape : layer.shapes)
            all += shape.paths;
        *paths += all.size();
        for (const VectorPath &path : qAsConst(all))
            *pieces += path.pieceCount();
        *jumps += jumpsMm(all);
    }
}

/** One layer after the other, with what was done so far. */
class Cleaner
{
public:
    Cleaner(const CleanOptions &cleanOptions, CleanReport *cleanReport, qint64 pieces)
        : m_options(cleanOptions), m_report(cleanReport), m_costs(cleanOptions),
          m_course(cleanOptions.progress, double(pieces) * StepCosts(cleanOptions).all())
    {
    }

    /** False when cancelled. */
    bool clean(VectorLayer *layer)
    {
        QVector<Group> groups = groupsOf(*layer);
        qint64 pieces = 0;
        for (Group &group : groups) {
            pieces += piecesOf(group);
            if (!cleanGroup(&group))
                return false;
        }
        QVector<VectorShape> shapes;
        for (const Group &group : qAsConst(groups)) {
            shapes += group.areas;
            VectorShape shape = group.style;
            for (const VectorPath &path : group.lines) {
                shape.paths = {path};
                shapes.append(shape);
            }
        }
        layer->shapes = shapes;
        return m_course.step(m_costs.order * double(pieces),
                             [&](const Part &part) { order(layer, part); });
    }

private:
    bool cleanGroup(Group *group)
    {
        DoubleFigures doubles;
        JoinFigures joins;
        QVector<VectorPath> &lines = group->lines;
        const double size = double(piecesOf(*group)); // as much as it was when all began
        const bool isDone = m_course.step(m_costs.zeroLength * size, [&](const Part &) {
            lines = withoutZeroLength(lines, 0.0, &doubles);
        }) && m_course.step(m_costs.doubles * size, [&](const Part &part) {
            lines = withoutDoubles(lines, m_options.sameMm, &doubles, part);
        }) && m_course.step(m_costs.joining * size, [&](const Part &part) {
            lines = joinedPaths(lines, m_options.joinMm, &joins, part);
        }) && m_course.step(m_costs.simplifying * size, [&](const Part &part) {
            changePaths(group, part, [&](const VectorPath &path) {
                return simplifiedPath(path, m_options.simplifyMm);
            });
        }) && m_course.step(m_costs.fitting * size, [&](const Part &part) {
            changePaths(group, part, [&](const VectorPath &path) {
                return arcFittedPath(path, m_options.fitArcsMm);
            });
        }) && m_course.step(m_costs.welding * size, [&](const Part &part) {
            weld(group, m_options, part);
        });
        m_report->zeroLength += doubles.zeroLength;
        m_report->doubled += doubles.doubled;
        m_report->doubledMm += doubles.doubledMm;
        m_report->joined += joins.joined;
        m_report->closed += joins.closed;
        return isDone;
    }

    /** Lines by the short way, after the areas. */
    static void order(VectorLayer *layer, const Part &part)
    {
        QVector<VectorShape> areas;
        for (const VectorShape &shape : qAsConst(layer->shapes)) {
            if (shape.isFilled)
                areas.append(shape);
        }
        QVector<VectorShape> lines;
        const QVector<Group> groups = groupsOf(*layer);
        double total = 1.0;
        for (const Group &group : groups)
            total += group.lines.size();
        for (const Group &group : groups) { // pens one after the other
            const QPointF start = lines.isEmpty() ? QPointF() : lines.last().paths.last().end();
            const double before = lines.size();
            const QVector<VectorPath> sorted = orderedPaths(group.lines, start, [&](double done) {
                return part((before + done * group.lines.size()) / total);
            });
            VectorShape shape = group.style;
            for (const VectorPath &path : sorted) {
                shape.paths = {path};
                lines.append(shape);
            }
        }
        layer->shapes = areas + lines;
    }

    const CleanOptions &m_options; ///< borrowed from the caller
    CleanReport *m_report;         ///< borrowed from the caller
    StepCosts m_costs;
    Course m_course;
};

} // namespace

bool cleanDrawing(VectorDrawing *drawing, const CleanOptions &options, CleanReport *report)
{
    const bool isAsked = options.dropZeroLength || options.dropDoubles || options.joinMm >= 0.0 ||
                         options.simplifyMm > 0.0 || options.fitArcsMm > 0.0 || options.weld ||
                         options.order;
    CleanReport figures;
    count(*drawing, &figures.pathsBefore, &figures.piecesBefore, &figures.jumpsBeforeMm);
    VectorDrawing cleaned = *drawing;
    Cleaner cleaner(options, &figures, piecesOf(cleaned));
    for (VectorLayer &layer : cleaned.layers) {
        if (isAsked && !cleaner.clean(&layer))
            return false;
    }
    count(cleaned, &figures.pathsAfter, &figures.piecesAfter, &figures.jumpsAfterMm);
    *drawing = cleaned;
    if (report)
        *report = figures;
    return true;
}

CleanReport cleaningNeeds(const VectorDrawing &drawing, double joinMm, double sameMm)
{
    VectorDrawing copy = drawing;
    CleanOptions options;
    options.dropZeroLength = true;
    options.dropDoubles = true;
    options.sameMm = sameMm;
    options.joinMm = joinMm;
    options.order = true;
    CleanReport report;
    cleanDrawing(&copy, options, &report);
    return report;
}

} // namespace vectorkit
