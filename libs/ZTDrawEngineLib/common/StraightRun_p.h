#pragma once

#include <QtCore/QPointF>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>
#include <QtGui/QTransform>

/**
 * Whether a path is one run of straight lines, as the outline of a rectangle is.
 *
 * What most shapes of a large drawing are needs neither a list of subpaths nor to be flattened.
 */
inline bool isStraightRun(const QPainterPath &path)
{
    const int count = path.elementCount();
    for (int i = 1; i < count; ++i) {
        if (!path.elementAt(i).isLineTo())
            return false;
    }
    return count > 1;
}

/**
 * The points of such a path after a transform, in `run`, whose memory is used again: the same as
 * the one polygon that `QPainterPath::toSubpathPolygons` gives.
 */
inline void mapStraightRun(const QPainterPath &path, const QTransform &matrix, QPolygonF &run)
{
    run.resize(path.elementCount());
    QPointF *points = run.data();
    for (int i = 0; i < path.elementCount(); ++i)
        points[i] = matrix.map(QPointF(path.elementAt(i)));
}
