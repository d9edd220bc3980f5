#pragma once

#include <QtCore/QString>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>

#include <initializer_list>

namespace testsupport {

/** A polygon of the given points. */
QPolygonF polygon(std::initializer_list<QPointF> points);

/** A polygon as text, all digits; what the comparers print. */
QString toText(const QPolygonF &polygon);

/** The subpaths of a path made of straight segments. */
QList<QPolygonF> polygonsOf(const QPainterPath &path);

/** Whether both hold as many points and each is within `tolerance`; prints both sides if not. */
bool near(const QPolygonF &actual, const QPolygonF &expected, double tolerance = 1e-9);

/** Whether two lists hold the same polygons, bit for bit; prints the first difference. */
bool same(const QList<QPolygonF> &actual, const QList<QPolygonF> &expected);

} // namespace testsupport
