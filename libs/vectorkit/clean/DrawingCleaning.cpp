#include <vectorkit/clean/DrawingCleaning.h>

#include <vectorkit/clean/OutlineOps.h>
#include <vectorkit/clean/PathDoubles.h>
#include <vectorkit/clean/PathFitting.h>
#include <vectorkit/clean/PathJoining.h>
#include <vectorkit/clean/PathOrder.h>

#include <algorithm>
#include <map>
#include <tuple>

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

template <class Change>
void changePaths(Group *group, Change change)
{
    for (VectorPath &path : group->lines)
        path = change(path);
    for (VectorShape &area : group->areas) {
        for (VectorPath &path : area.paths)
            path = change(path);
    }
}

void weld(Group *group, const CleanOptions &options)
{
    QVector<VectorPath> open;
    QVector<VectorPath> closed;
    for (const VectorPath &path : qAsConst(group->lines))
        (path.isClosed() ? closed : open).append(path);
    group->lines = open;
    if (!closed.isEmpty())
        group->lines += weldedOutlines(closed, options.weldRule, options.toleranceMm);
    if (group->areas.isEmpty())
        return;
    QVector<VectorPath> outlines; // each under its own rule, and then all as one
    for (const VectorShape &area : qAsConst(group->areas))
        outlines += weldedOutlines(area.paths, area.fillRule, options.toleranceMm);
    VectorShape area = group->areas.first();
    area.isStroked = std::all_of(group->areas.begin(), group->areas.end(),
                                 [](const VectorShape &shape) { return shape.isStroked; });
    area.paths = weldedOutlines(outlines, Qt::WindingFill, options.toleranceMm);
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
    Cleaner(const CleanOptions &cleanOptions, CleanReport *cleanReport, int layerCount)
        : m_options(cleanOptions), m_report(cleanReport), m_layers(layerCount)
    {
    }

    bool clean(VectorLayer *layer)
    {
        QVector<Group> groups = groupsOf(*layer);
        for (Group &group : groups) {
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
        const bool isDone = !m_options.order || order(layer);
        ++m_layersDone;
        return isDone;
    }

private:
    bool isCancelled(double partOfLayer) const
    {
        return m_options.progress && !m_options.progress((m_layersDone + partOfLayer) / m_layers);
    }

    bool cleanGroup(Group *group)
    {
        DoubleFigures doubles;
        JoinFigures joins;
        if (isCancelled(0.0))
            return false;
        if (m_options.dropZeroLength)
            group->lines = withoutZeroLength(group->lines, 0.0, &doubles);
        if (m_options.dropDoubles)
            group->lines = withoutDoubles(group->lines, m_options.sameMm, &doubles);
        if (isCancelled(0.3))
            return false;
        if (m_options.joinMm >= 0.0)
            group->lines = joinedPaths(group->lines, m_options.joinMm, &joins);
        if (isCancelled(0.5))
            return false;
        if (m_options.simplifyMm > 0.0)
            changePaths(group, [&](const VectorPath &path) {
                return simplifiedPath(path, m_options.simplifyMm);
            });
        if (m_options.fitArcsMm > 0.0)
            changePaths(group, [&](const VectorPath &path) {
                return arcFittedPath(path, m_options.fitArcsMm);
            });
        if (isCancelled(0.6))
            return false;
        if (m_options.weld)
            weld(group, m_options);
        m_report->zeroLength += doubles.zeroLength;
        m_report->doubled += doubles.doubled;
        m_report->doubledMm += doubles.doubledMm;
        m_report->joined += joins.joined;
        m_report->closed += joins.closed;
        return true;
    }

    /** Lines by the short way, after the areas. */
    bool order(VectorLayer *layer)
    {
        QVector<VectorShape> areas;
        for (const VectorShape &shape : qAsConst(layer->shapes)) {
            if (shape.isFilled)
                areas.append(shape);
        }
        QVector<VectorShape> lines;
        for (const Group &group : groupsOf(*layer)) { // pens one after the other
            bool isCancelledNow = false;
            const QPointF start = lines.isEmpty() ? QPointF() : lines.last().paths.last().end();
            const QVector<VectorPath> sorted = orderedPaths(group.lines, start, [&](double done) {
                isCancelledNow = isCancelled(0.7 + 0.3 * done);
                return !isCancelledNow;
            });
            if (isCancelledNow)
                return false;
            VectorShape shape = group.style;
            for (const VectorPath &path : sorted) {
                shape.paths = {path};
                lines.append(shape);
            }
        }
        layer->shapes = areas + lines;
        return true;
    }

    const CleanOptions &m_options; ///< borrowed from the caller
    CleanReport *m_report;         ///< borrowed from the caller
    int m_layers;
    int m_layersDone = 0;
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
    Cleaner cleaner(options, &figures, std::max(1, cleaned.layers.size()));
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
