#pragma once

#include <QtCore/QLineF>
#include <QtCore/QList>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

namespace zthatch {

/**
 * Level lines over polygons, from top to bottom, each from left to right.
 *
 * The polygons are not closed: only their own sides bound the lines. The lines are the same
 * whatever the number of threads.
 */
QVector<QLineF> levelLines(const QList<QPolygonF> &polygons, double spac);

} // namespace zthatch
