#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>

namespace hostkit {

/** A drawing as the section PLOT holds it: curves as straight pieces within 0.01 mm. */
QPainterPath straightened(const QPainterPath &drawing);

/** The section CURV: the curves of those drawings that have any; empty for none. */
QByteArray curvesToBytes(const QVector<QPainterPath> &drawings);

/**
 * Gives drawings that were read from PLOT their curves. Curves of a drawing that another program
 * has replaced since are left out.
 *
 * Failure: false for anything but exactly what writing makes.
 */
bool curvesFromBytes(const QByteArray &bytes, QVector<QPainterPath> *drawings);

} // namespace hostkit
