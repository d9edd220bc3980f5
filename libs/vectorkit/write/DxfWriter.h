#pragma once

#include <vectorkit/VectorDrawing.h>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace vectorkit {

/**
 * Writes the outlines of a drawing as DXF R12, which every program reads.
 *
 * A polyline a path, in millimetres with y up: arcs of circles as bulges, exactly; cubic curves as
 * straight lines. A layer a pen with its colour of the 255, "PEN_1"; without a pen a layer a
 * colour, "COLOR_FF0000" with the nearest of the 255. Texts and fills are left out: a filled area
 * is its outline. Numbers have six decimals.
 *
 * Range: `toleranceMm` greater than 0: how far lines may be from a cubic curve.
 * Owner: `device` is borrowed, open for writing.
 * Failure: false when the device takes no more.
 */
bool writeDxfR12(const VectorDrawing &drawing, QIODevice *device, double toleranceMm = 0.005);

/** The index, 1 to 255, whose colour is nearest; 7 for black and for an invalid colour. */
int nearestColorIndex(const QColor &color);

} // namespace vectorkit
