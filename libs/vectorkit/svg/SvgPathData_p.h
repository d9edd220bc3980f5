#pragma once

#include <vectorkit/VectorPath.h>

#include <QtCore/QString>
#include <QtCore/QVector>

namespace vectorkit {

/**
 * The runs of a `d` attribute, in its own units, y down.
 *
 * Failure: reads up to the damage, as the format wants it, and gives false; `damageAt` then holds
 * the place of it in the text.
 */
bool parseSvgPath(const QString &data, QVector<VectorPath> *paths, int *damageAt);

/**
 * An arc of an ellipse from where the path stands, by its end points: an exact arc of a circle
 * where both radii are equal, cubics within a millionth of the radius elsewhere.
 *
 * Radii too small for the distance grow until they reach, and a radius of 0 gives a line.
 */
void addSvgArc(VectorPath *path, double radiusX, double radiusY, double turnDeg, bool isLarge,
               bool isClockwise, const QPointF &to);

/** A whole ellipse, clockwise from three o'clock; a circle exactly. Radii greater than 0. */
VectorPath svgEllipse(const QPointF &centre, double radiusX, double radiusY);

/** A rectangle, clockwise from the top left, its corners rounded where radii are above 0. */
VectorPath svgRect(const QRectF &rect, double radiusX, double radiusY);

} // namespace vectorkit
