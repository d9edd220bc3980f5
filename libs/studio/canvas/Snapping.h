#pragma once

#include <QtCore/QLineF>
#include <QtCore/QRectF>
#include <QtCore/QVector>

namespace studio {

// What is dragged comes to rest where something else already is. Frame: scene pixels.

/** Why a place attracts. */
enum class SnapKind { Guide, Edge, Centre, Point, Grid };

/** A line that attracts, in one direction: as long as what it belongs to. */
struct SnapTarget
{
    double atPx = 0.0; ///< its x if it is upright, its y if it is level
    double fromPx = 0.0;
    double toPx = 0.0;
    SnapKind kind = SnapKind::Edge;
};

/** All that attracts during a drag. */
struct SnapTargets
{
    QVector<SnapTarget> upright; ///< ascending, as `sort` leaves them
    QVector<SnapTarget> level;   ///< the same
    double gridPx = 0.0;         ///< pitch of the grid; 0: there is none

    /** The edges and middles of a box. */
    void addBox(const QRectF &boxPx);

    /** A place, such as the end of a line. */
    void addPoint(const QPointF &placePx);

    void sort();
};

/** What is dragged, where it would come without attraction. */
struct SnapFeatures
{
    QVector<double> xs; ///< what may rest on upright lines; the first one alone rests on the grid
    QVector<double> ys; ///< the same of level lines
    QRectF boxPx;       ///< all of it; without extent for a place

    static SnapFeatures ofBox(const QRectF &boxPx);
    static SnapFeatures ofPoint(const QPointF &placePx);
};

/** Where it comes instead. */
struct SnapResult
{
    QPointF shiftPx;         ///< to be added; 0 in a direction in which nothing attracts
    QVector<QLineF> lines;   ///< that show why: from what attracts to what is dragged
    QVector<SnapKind> kinds; ///< of the lines, each kind once; of the grid there are no lines
};

/**
 * The nearest place within reach, in each direction on its own. The grid attracts only where
 * nothing else does.
 */
SnapResult snapped(const SnapFeatures &dragged, const SnapTargets &targets, double reachPx);

} // namespace studio
