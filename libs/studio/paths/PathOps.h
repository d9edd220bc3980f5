#pragma once

#include <studio/shapes/ShapeItems.h>

#include <vectorkit/VectorPath.h>
#include <vectorkit/clean/OutlineOps.h>

namespace studio {

/** How far flattened curves may lie from the true ones where outlines are taken together. */
constexpr double kOpToleranceMm = 0.002;

/** The outlines of a shape, told apart. Frame: millimetres on the scene. */
struct ShapeOutlines
{
    QVector<vectorkit::VectorPath> closed;
    QVector<vectorkit::VectorPath> open;
};

ShapeOutlines outlinesApart(const ShapeItem &item);

/**
 * The areas of shapes taken together, lowest first: the area of a shape is what its hatch fills.
 * A difference is the first without all others; an exclusion is what lies in an odd number of them.
 *
 * Frame: curves are straight pieces or arcs, within twice `kOpToleranceMm`. Failure: none where
 * nothing is left.
 */
QVector<vectorkit::VectorPath> areasTogether(vectorkit::OutlineOp op,
                                             const QVector<QVector<vectorkit::VectorPath>> &areas);

/**
 * Areas that overlap made one: what is drawn twice counts once, and holes stay holes.
 *
 * Frame and failure: as `areasTogether`.
 */
QVector<vectorkit::VectorPath> weldedAreas(const QVector<vectorkit::VectorPath> &closed);

/**
 * Paths taken apart: each closed outline with its holes, and each open run. What is one outline
 * with its holes already comes apart into its runs.
 */
QVector<QVector<vectorkit::VectorPath>> pathsApart(const QVector<vectorkit::VectorPath> &paths);

} // namespace studio
